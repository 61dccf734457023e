#include "CourseDlg.h"

#include "BrindleData.h"
#include "CourseDlgBasicPage.h"
#include "CourseDlgBooksPage.h"
#include "CourseRemoval.h"
#include "GradeCalculation.h"
#include "InstructorDlg.h"
#include "RoomPage.h"
#include "TimeListPage.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/Mnemonic.h"
#include "controls/NumericEdit.h"
#include "controls/TextDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "res/strings/EditorStrings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

CourseDlg::CourseDlg(QWidget* parent)
    : QDialog(parent), m_menuBar(new QMenuBar(this)), m_pages(new QTabWidget(this)),
      m_basicPage(new CCourseBasicPage(m_pages)), m_booksPage(new CCourseBooksPage(m_pages)),
      m_timesPage(new CTimeListPage(QStringLiteral(":/images/times.svg"), m_pages)),
      m_roomPage(new CRoomPage(true, QStringLiteral(":/images/room.svg"), m_pages)),
      m_buttons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this))
{
    setObjectName(QStringLiteral("CourseDlg"));
    m_course.Open();

    m_pages->setObjectName(QStringLiteral("pages"));
    m_timesPage->setObjectName(QStringLiteral("timesPage"));
    m_pages->addTab(m_basicPage, EditorStrings::PageBasicInfo());
    m_pages->addTab(m_booksPage, EditorStrings::PageBooks());
    m_pages->addTab(m_timesPage, EditorStrings::PageTimes());
    m_pages->addTab(m_roomPage, EditorStrings::PageRoom());
    m_booksPage->Bind(&m_textbooks, &m_removedTextbookIds);
    m_timesPage->Bind(&m_times, &m_removedTimeIds);
    connect(m_booksPage, &CListEditPage::EditorOpenChanged, this, &CourseDlg::SetEditorOpen);
    connect(m_timesPage, &CListEditPage::EditorOpenChanged, this, &CourseDlg::SetEditorOpen);

    m_buttons->setObjectName(QStringLiteral("buttons"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &CourseDlg::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &CourseDlg::reject);
    BuildMenu();

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(m_menuBar);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 26, line * 28);
}

CourseDlg::~CourseDlg()
{
    // However the dialog ends, a new course it never saved does not stay.
    if (m_initialized && m_newCourse && !m_finished)
        RemoveCourse(m_courseId);
}

void CourseDlg::BuildMenu()
{
    m_menuBar->setObjectName(QStringLiteral("menuBar"));
    QMenu* advanced = m_menuBar->addMenu(WithMnemonic(EditorStrings::MenuAdvanced()));
    advanced->setObjectName(QStringLiteral("menuAdvanced"));
    m_gradingAction = advanced->addAction(EditorStrings::Grading(), this, &CourseDlg::OnGrading);
    m_gradingAction->setObjectName(QStringLiteral("actionGrading"));
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

    m_basicPage->DeptEdit()->setText(m_course.GetDepartment());
    // Hours not given (a negative marker) show as an empty field.
    const double hours = m_course.GetCourseHours();
    m_basicPage->HoursEdit()->SetValue(hours < 0.0 ? CNumericEdit::EmptyValue : hours);
    m_basicPage->NameEdit()->setText(m_course.GetCourseName());
    m_basicPage->SectionEdit()->setText(m_course.GetCourseSection());
    m_basicPage->NumberEdit()->setText(m_course.GetCourseNumber());
    m_roomPage->RoomNumberEdit()->setText(m_course.GetRoomNumber());
    m_roomPage->WebSiteEdit()->setText(m_course.GetCourseWebSite());
    m_basicPage->InMajorBox()->setChecked(m_course.GetInMajor() != 0);
    m_details = m_course.GetDetails();

    LoadTimes();
    LoadTextbooks();

    m_roomPage->LoadBuildings();
    m_roomPage->SelectBuilding(m_course.GetBuildingID());

    m_pages->setCurrentIndex(0);
    if (m_startOnBooks)
        ApplyStartOnBooks();
}

void CourseDlg::LoadTimes()
{
    m_times.clear();
    CTimeTable times;
    if (times.Open(0)) {
        const CCeDBProp key(m_courseId);
        times.SetSeekValue(&key, CDataTable::SeekValueEqual);
        for (int ok = times.MoveFirst(1); ok; ok = times.MoveNext(1))
            m_times.push_back({times.GetRecordID(), times.GetDayOfWeek(), times.GetStartTime(),
                               times.GetEndTime()});
    }
    m_timesPage->Redraw();
}

void CourseDlg::LoadTextbooks()
{
    m_textbooks.clear();
    std::vector<std::pair<quint32, quint16>> order; // (textbook id, position)
    {
        CTextbookOrderTable orders;
        if (orders.Open(1)) {
            const CCeDBProp key(m_courseId);
            orders.SetSeekValue(&key, CDataTable::SeekValueEqual);
            for (int ok = orders.MoveFirst(1); ok; ok = orders.MoveNext(1))
                order.emplace_back(orders.GetTextbookID(), orders.GetTextbookPosition());
        }
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const auto& a, const auto& b) { return a.second < b.second; });

    CTextbookTable textbooks;
    if (textbooks.Open()) {
        // An order row whose textbook is gone is passed over.
        for (const auto& [id, position] : order) {
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
    m_pages->setCurrentWidget(m_booksPage);
    if (!m_booksPage->IsEditorOpen())
        m_booksPage->NewTextbook();
}

void CourseDlg::SetEditorOpen(bool open)
{
    m_pages->tabBar()->setEnabled(!open);
    // The other pages wait too, so that Ctrl+Tab cannot reach them either.
    const QObject* editorPage = sender();
    for (int i = 0; i < m_pages->count(); ++i) {
        if (m_pages->widget(i) != editorPage)
            m_pages->setTabEnabled(i, !open);
    }
    m_menuBar->setEnabled(!open);
    m_buttons->setEnabled(!open);
    if (!open)
        m_buttons->button(QDialogButtonBox::Ok)->setDefault(true);
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

bool CourseDlg::OnOK()
{
    // An entry editor left open is finished first, as its own OK would.
    for (CListEditPage* page :
         {static_cast<CListEditPage*>(m_booksPage), static_cast<CListEditPage*>(m_timesPage)}) {
        if (page->IsEditorOpen() && !page->FinishEditor(true))
            return false;
    }

    const QString name = m_basicPage->NameEdit()->text();
    if (name.isEmpty()) {
        BrindleMessageBox::Inform(this, EditorStrings::NoCourseName());
        m_pages->setCurrentWidget(m_basicPage);
        m_basicPage->NameEdit()->setFocus();
        return false;
    }
    if (IsDuplicateName(name)) {
        BrindleMessageBox::Inform(this, EditorStrings::DuplicateCourseName(name));
        m_pages->setCurrentWidget(m_basicPage);
        m_basicPage->NameEdit()->setFocus();
        return false;
    }
    const double hours = m_basicPage->HoursEdit()->Value();
    if (!m_basicPage->HoursEdit()->IsEmpty() && hours < 0.0) {
        BrindleMessageBox::Inform(this, EditorStrings::HoursOutOfRange());
        m_pages->setCurrentWidget(m_basicPage);
        m_basicPage->HoursEdit()->setFocus();
        return false;
    }

    CTransaction transaction;
    m_course.SetCourseName(name);
    m_course.SetCourseNumber(m_basicPage->NumberEdit()->text());
    m_course.SetDepartment(m_basicPage->DeptEdit()->text());
    m_course.SetCourseHours(hours);
    m_course.SetCourseSection(m_basicPage->SectionEdit()->text());
    m_course.SetRoomNumber(m_roomPage->RoomNumberEdit()->text());
    m_course.SetCourseWebSite(m_roomPage->WebSiteEdit()->text());
    m_course.SetInMajor(m_basicPage->InMajorBox()->isChecked() ? 1 : 0);
    m_course.SetDetails(m_details);

    const QString building = m_roomPage->BuildingText();
    quint32 buildingId = 0;
    if (!building.isEmpty()) {
        buildingId = CBuildingTable::GetBuildingIDFromName(building);
        if (buildingId == 0) {
            CBuildingTable buildings;
            buildings.Open();
            buildings.NewRecord(0);
            buildings.SetBuildingName(building);
            buildings.UpdateRecord();
            buildingId = buildings.GetRecordID();
        }
    }
    m_course.SetBuildingID(buildingId);
    if (!m_course.UpdateRecord()) {
        transaction.Rollback();
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }

    if (m_newCourse) {
        CCourseOrderTable order;
        order.Open();
        order.NewRecord(0);
        order.SetCourseID(m_courseId);
        CAppStateTable& state = CAppStateTable::Instance();
        order.SetSemesterID(state.GetCurrentSemesterID());
        // The position is the table's record count once this row exists, every
        // semester counted: the new course comes after all the others.
        order.UpdateRecord();
        order.SetCoursePosition(order.GetRecordCount());
        order.UpdateRecord();
        state.SetCurrentCourseID(m_courseId);
        state.UpdateRecord();
    }

    SaveTimes();
    SaveTextbooks();
    // A failed step or commit leaves the file as it was and the dialog open
    // with everything typed, for another try.
    if (!transaction.Commit()) {
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    return true;
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
    CCourseworkTable coursework;
    if (!coursework.Open(2))
        return;
    const CCeDBProp key(textbookId);
    coursework.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
        coursework.SetTextbookID(0xFFFFFFFF);
        coursework.UpdateRecord();
    }
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
    if (const auto text = TextDlg::Edit(this, EditorStrings::CourseDetailsTitle(), m_details))
        m_details = *text;
}
