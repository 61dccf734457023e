#include "CourseDlg.h"

#include "BrindleData.h"
#include "BuildingLookup.h"
#include "CourseDlgBasicPage.h"
#include "CourseDlgBooksPage.h"
#include "CourseRemoval.h"
#include "GradeCalculation.h"
#include "InstructorDlg.h"
#include "RoomPage.h"
#include "TableWalk.h"
#include "TextbookOrder.h"
#include "TimeListPage.h"
#include "controls/DialogRunner.h"
#include "controls/MessageBox.h"
#include "controls/Mnemonic.h"
#include "controls/NumericEdit.h"
#include "controls/TextDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "res/strings/EditorStrings.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabWidget>

CourseDlg::CourseDlg(QWidget* parent)
    : CPagedEditorDlg(QStringLiteral("CourseDlg"), parent),
      m_basicPage(new CCourseBasicPage(Pages())), m_booksPage(new CCourseBooksPage(Pages())),
      m_timesPage(new CTimeListPage(QStringLiteral(":/images/times.svg"), Pages())),
      m_roomPage(new CRoomPage(true, QStringLiteral(":/images/room.svg"), Pages()))
{
    m_course.Open();
    m_timesPage->setObjectName(QStringLiteral("timesPage"));
    AddPage(m_basicPage, EditorStrings::PageBasicInfo());
    AddEditorPage(m_booksPage, EditorStrings::PageBooks());
    AddEditorPage(m_timesPage, EditorStrings::PageTimes());
    AddPage(m_roomPage, EditorStrings::PageRoom());
    m_booksPage->Bind(&m_textbooks, &m_removedTextbookIds);
    m_timesPage->Bind(&m_times, &m_removedTimeIds);
    BuildMenu();
}

CourseDlg::~CourseDlg()
{
    // However the dialog ends, a new course it never saved does not stay.
    if (m_initialized && m_newCourse && !m_finished)
        RemoveCourse(m_courseId);
}

void CourseDlg::BuildMenu()
{
    QMenu* advanced = MenuBar()->addMenu(WithMnemonic(EditorStrings::MenuAdvanced()));
    advanced->setObjectName(QStringLiteral("menuAdvanced"));
    advanced->addAction(EditorStrings::Grading(), this, &CourseDlg::OnGrading)
        ->setObjectName(QStringLiteral("actionGrading"));
    advanced->addAction(EditorStrings::Instructor(), this, &CourseDlg::OnInstructor)
        ->setObjectName(QStringLiteral("actionInstructor"));
    advanced->addAction(EditorStrings::Details(), this, &CourseDlg::OnDetails)
        ->setObjectName(QStringLiteral("actionDetails"));
}

void CourseDlg::SetCourse(quint32 courseId)
{
    if (m_initialized)
        return;
    m_courseId = courseId;
    OnInitDialog();
}

void CourseDlg::SetStartOnBooks(bool startOnBooks)
{
    m_startOnBooks = startOnBooks;
    if (m_initialized)
        ApplyStartOnBooks();
}

void CourseDlg::OnInitDialog()
{
    m_initialized = true;
    m_newCourse = m_courseId == NewCourseID;
    if (m_newCourse) {
        setWindowTitle(EditorStrings::NewCourseTitle());
        CTransaction transaction;
        m_course.NewRecord(0);
        m_course.UpdateRecord();
        m_courseId = m_course.GetRecordID();
        CreateDefaultGradingPolicy(m_courseId);
        transaction.Commit();
    } else {
        setWindowTitle(EditorStrings::EditCourseTitle());
        m_course.MoveToRecord(m_courseId);
    }

    LoadEntry();
    LoadTimes();
    LoadTextbooks();
    m_roomPage->LoadBuildings();
    ShowEntry();

    Pages()->setCurrentIndex(0);
    if (m_startOnBooks)
        ApplyStartOnBooks();
}

void CourseDlg::LoadEntry()
{
    m_entry.name = m_course.GetCourseName();
    m_entry.number = m_course.GetCourseNumber();
    m_entry.section = m_course.GetCourseSection();
    m_entry.department = m_course.GetDepartment();
    // Hours not given are stored as a negative marker.
    const double hours = m_course.GetCourseHours();
    m_entry.hours = hours < 0.0 ? CourseEntry::NoHours : hours;
    m_entry.inMajor = m_course.GetInMajor() != 0;
    m_entry.roomNumber = m_course.GetRoomNumber();
    m_entry.webSite = m_course.GetCourseWebSite();
    m_entry.buildingName = CBuildingTable::GetBuildingNameFromID(m_course.GetBuildingID());
    m_entry.details = m_course.GetDetails();
}

void CourseDlg::ShowEntry()
{
    m_basicPage->NameEdit()->setText(m_entry.name);
    m_basicPage->NumberEdit()->setText(m_entry.number);
    m_basicPage->SectionEdit()->setText(m_entry.section);
    m_basicPage->DeptEdit()->setText(m_entry.department);
    m_basicPage->HoursEdit()->SetValue(m_entry.hours);
    m_basicPage->InMajorBox()->setChecked(m_entry.inMajor);
    m_roomPage->RoomNumberEdit()->setText(m_entry.roomNumber);
    m_roomPage->WebSiteEdit()->setText(m_entry.webSite);
    m_roomPage->SelectBuildingName(m_entry.buildingName);
}

void CourseDlg::CollectEntry()
{
    m_entry.name = m_basicPage->NameEdit()->text();
    m_entry.number = m_basicPage->NumberEdit()->text();
    m_entry.section = m_basicPage->SectionEdit()->text();
    m_entry.department = m_basicPage->DeptEdit()->text();
    m_entry.hours = m_basicPage->HoursEdit()->Value();
    m_entry.inMajor = m_basicPage->InMajorBox()->isChecked();
    m_entry.roomNumber = m_roomPage->RoomNumberEdit()->text();
    m_entry.webSite = m_roomPage->WebSiteEdit()->text();
    m_entry.buildingName = m_roomPage->BuildingText();
}

void CourseDlg::LoadTimes()
{
    m_times.clear();
    ForEachRow<CTimeTable>(0, m_courseId, [this](CTimeTable& times) {
        m_times.push_back(
            {times.GetRecordID(), times.GetDayOfWeek(), times.GetStartTime(), times.GetEndTime()});
    });
    m_timesPage->Redraw();
}

void CourseDlg::LoadTextbooks()
{
    m_textbooks.clear();
    CTextbookTable textbooks;
    if (textbooks.Open()) {
        // An order row whose textbook is gone is passed over.
        for (quint32 id : GetTextbookIDsInOrder(m_courseId)) {
            if (textbooks.MoveToRecord(id))
                m_textbooks.push_back(
                    {id, textbooks.GetTextbookName(), textbooks.GetAuthor(), textbooks.GetCost()});
        }
    }
    m_booksPage->Redraw();
}

void CourseDlg::ApplyStartOnBooks()
{
    if (!m_startOnBooks)
        return;
    Pages()->setCurrentWidget(m_booksPage);
    if (!m_booksPage->IsEditorOpen())
        m_booksPage->NewTextbook();
}

bool CourseDlg::IsDuplicateName(const QString& name) const
{
    CCourseTable byName;
    if (!byName.Open(0))
        return false;
    const CCeDBProp key(name);
    byName.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = byName.MoveFirst(1); ok; ok = byName.MoveNext(1)) {
        if (byName.GetRecordID() != m_courseId)
            return true;
    }
    return false;
}

QString CourseDlg::Refusal(QWidget** field) const
{
    *field = m_basicPage->NameEdit();
    if (m_entry.name.isEmpty())
        return EditorStrings::NoCourseName();
    if (IsDuplicateName(m_entry.name))
        return EditorStrings::DuplicateCourseName(m_entry.name);
    *field = m_basicPage->HoursEdit();
    if (m_entry.hours != CourseEntry::NoHours && m_entry.hours < 0.0)
        return EditorStrings::HoursOutOfRange();
    return QString();
}

bool CourseDlg::OnOK()
{
    // An entry editor left open is finished first, as its own OK would.
    for (CListEditPage* page :
         {static_cast<CListEditPage*>(m_booksPage), static_cast<CListEditPage*>(m_timesPage)}) {
        if (page->IsEditorOpen() && !page->FinishEditor(true))
            return false;
    }
    CollectEntry();
    return Save();
}

bool CourseDlg::Save()
{
    QWidget* field = nullptr;
    if (const QString refusal = Refusal(&field); !refusal.isEmpty()) {
        BrindleMessageBox::Inform(this, refusal);
        Pages()->setCurrentWidget(m_basicPage);
        field->setFocus();
        return false;
    }

    CTransaction transaction;
    m_course.SetCourseName(m_entry.name);
    m_course.SetCourseNumber(m_entry.number);
    m_course.SetDepartment(m_entry.department);
    m_course.SetCourseHours(m_entry.hours);
    m_course.SetCourseSection(m_entry.section);
    m_course.SetRoomNumber(m_entry.roomNumber);
    m_course.SetCourseWebSite(m_entry.webSite);
    m_course.SetInMajor(m_entry.inMajor ? 1 : 0);
    m_course.SetDetails(m_entry.details);
    m_course.SetBuildingID(GetOrAddBuildingID(m_entry.buildingName));
    // A failed step or commit leaves the file as it was and the dialog open
    // with everything typed, for another try.
    if (!m_course.UpdateRecord() || (m_newCourse && !AddToSemesterOrder())) {
        transaction.Rollback();
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    SaveTimes();
    SaveTextbooks();
    if (!transaction.Commit()) {
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    return true;
}

bool CourseDlg::AddToSemesterOrder()
{
    CCourseOrderTable order;
    if (!order.Open())
        return false;
    order.NewRecord(0);
    order.SetCourseID(m_courseId);
    CAppStateTable& state = CAppStateTable::Instance();
    order.SetSemesterID(state.GetCurrentSemesterID());
    // The position is the table's record count once this row exists, every
    // semester counted: the new course comes after all the others.
    if (!order.UpdateRecord())
        return false;
    order.SetCoursePosition(order.GetRecordCount());
    state.SetCurrentCourseID(m_courseId);
    return order.UpdateRecord() && state.UpdateRecord();
}

void CourseDlg::SaveTimes()
{
    CTimeTable times;
    if (!times.Open())
        return;
    for (quint32 id : m_removedTimeIds) {
        if (times.MoveToRecord(id))
            times.DeleteRecord(0);
    }
    for (quint32 id : m_removedTextbookIds)
        DeleteTextbookWithCascade(id);

    for (const ClassTimeEntry& entry : m_times) {
        if (entry.id == 0 || !times.MoveToRecord(entry.id)) {
            times.NewRecord(0);
            times.SetForeignRecordID(m_courseId);
        }
        times.SetDayOfWeek(entry.days);
        times.SetStartTime(entry.start);
        times.SetEndTime(entry.end);
        times.UpdateRecord();
    }
}

void CourseDlg::DeleteTextbookWithCascade(quint32 textbookId)
{
    CTextbookTable textbooks;
    if (!textbooks.Open() || !textbooks.MoveToRecord(textbookId))
        return;
    textbooks.DeleteRecord(0);

    // Its coursework is left without a textbook; the order row stays and is
    // passed over when the course is opened again.
    ForEachRow<CCourseworkTable>(2, textbookId, [](CCourseworkTable& coursework) {
        coursework.SetTextbookID(0xFFFFFFFF);
        return coursework.UpdateRecord() != 0;
    });
}

void CourseDlg::SaveTextbooks()
{
    CTextbookOrderTable orders;
    CTextbookTable textbooks;
    if (!orders.Open(0) || !textbooks.Open())
        return;
    for (size_t i = 0; i < m_textbooks.size(); ++i) {
        const TextbookEntry& entry = m_textbooks[i];
        const bool stored = entry.id != 0 && textbooks.MoveToRecord(entry.id);
        if (!stored) {
            textbooks.NewRecord(0);
            textbooks.SetCourseID(m_courseId);
        }
        textbooks.SetAuthor(entry.author);
        textbooks.SetCost(entry.cost);
        textbooks.SetTextbookName(entry.name);
        textbooks.UpdateRecord();
        const quint32 textbookId = textbooks.GetRecordID();

        bool haveOrder = false;
        if (stored) {
            const CCeDBProp key(textbookId);
            orders.SetSeekValue(&key, CDataTable::SeekValueEqual);
            haveOrder = orders.MoveFirst(1) != 0;
        }
        if (!haveOrder) {
            orders.NewRecord(0);
            orders.SetCourseID(m_courseId);
            orders.SetTextbookID(textbookId);
        }
        orders.SetTextbookPosition(static_cast<quint16>(i));
        orders.UpdateRecord();
    }
}

void CourseDlg::OnCancel()
{
    if (m_initialized && m_newCourse && !m_finished)
        RemoveCourse(m_courseId);
    m_finished = true;
}

void CourseDlg::accept()
{
    if (!OnOK())
        return;
    m_finished = true;
    QDialog::accept();
}

void CourseDlg::reject()
{
    OnCancel();
    QDialog::reject();
}

void CourseDlg::OnGrading()
{
    GradingDlg grading(m_courseId, false, this);
    if (DialogRunner::Run(grading) == QDialog::Accepted)
        RecomputeCourseGrade(m_courseId);
}

void CourseDlg::OnInstructor()
{
    InstructorDlg instructors(m_courseId, this);
    DialogRunner::Run(instructors);
}

void CourseDlg::OnDetails()
{
    if (const auto text = TextDlg::Edit(this, EditorStrings::CourseDetailsTitle(), m_entry.details))
        m_entry.details = *text;
}
