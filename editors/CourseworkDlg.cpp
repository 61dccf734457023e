#include "CourseworkDlg.h"

#include "CourseworkDlgDetailsPage.h"
#include "CourseworkDlgExport.h"
#include "CourseworkDlgInfoPage.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/ListChooserDlg.h"
#include "controls/MessageBox.h"
#include "controls/Mnemonic.h"
#include "controls/NumericEdit.h"
#include "editors/CourseDlg.h"
#include "grading/GradeCalculation.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradingDlg.h"
#include "res/strings/CourseworkStrings.h"
#include "store/BrindleData.h"
#include "store/Clock.h"
#include "store/TextbookOrder.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// The file marks a score or points possible not given as -1.0; the working
// copy and the fields as an empty field.
double FromStored(double points)
{
    return points == -1.0 ? CourseworkEntry::None : points;
}

double ToStored(double points)
{
    return points == CourseworkEntry::None ? -1.0 : points;
}

} // namespace

CourseworkDlg::CourseworkDlg(QWidget* parent)
    : QDialog(parent), m_pages(new QTabWidget(this)),
      m_infoPage(new CourseworkDlgInfoPage(m_pages)),
      m_detailsPage(new CourseworkDlgDetailsPage(m_pages)), m_export(new CourseworkDlgExport(this))
{
    setObjectName(QStringLiteral("CourseworkDlg"));
    m_pages->setObjectName(QStringLiteral("courseworkPages"));
    m_pages->addTab(m_infoPage, CourseworkStrings::PageInfo());
    m_pages->addTab(m_detailsPage, CourseworkStrings::PageDetails());

    auto* bar = new QMenuBar(this);
    m_export->AddMenu(bar);
    QMenu* add = bar->addMenu(WithMnemonic(CourseworkStrings::MenuAdd()));
    add->setObjectName(QStringLiteral("menuAdd"));
    m_addCwType = add->addAction(CourseworkStrings::AddCwType());
    m_addCwType->setObjectName(QStringLiteral("actionAddCwType"));
    m_addTextbook = add->addAction(CourseworkStrings::AddTextbook());
    m_addTextbook->setObjectName(QStringLiteral("actionAddTextbook"));
    connect(m_addCwType, &QAction::triggered, this, &CourseworkDlg::OnAddCwType);
    connect(m_addTextbook, &QAction::triggered, this, &CourseworkDlg::OnAddTextbook);

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &CourseworkDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CourseworkDlg::reject);

    // Said before anything is typed: in prediction mode scores stay in memory.
    auto* predictionNote = new QLabel(CourseworkStrings::PredictionNotSaved(), this);
    predictionNote->setObjectName(QStringLiteral("predictionNote"));
    predictionNote->setWordWrap(true);
    predictionNote->setVisible(CPredictionStore::Instance().IsActive());

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(bar);
    layout->addWidget(predictionNote);
    layout->addWidget(m_pages);
    layout->addWidget(buttons);

    // Only the user's typing forces the progress: filling the fields on
    // opening must leave the stored progress as it is.
    connect(m_infoPage->ScoreEdit(), &QLineEdit::textEdited, this, &CourseworkDlg::OnPointsEdited);
    connect(m_infoPage->OutOfEdit(), &QLineEdit::textEdited, this, &CourseworkDlg::OnPointsEdited);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 27, line * 24);
}

CourseworkDlg::~CourseworkDlg()
{
    // A new record must not outlive a dialog that was neither saved nor
    // cancelled (closed by its owner, say).
    if (m_opened && m_new && !m_finished) {
        CTransaction transaction;
        if (m_coursework.MoveToRecord(m_courseworkId))
            m_coursework.DeleteRecord(0);
        transaction.Commit();
    }
}

bool CourseworkDlg::OnInitDialog()
{
    setWindowTitle(m_new ? CourseworkStrings::NewCoursework()
                         : CourseworkStrings::EditCoursework());
    if (m_new && m_courseId == NoCourseID && !ChooseCourse()) {
        m_finished = true;
        setResult(QDialog::Rejected);
        return false;
    }
    if (!m_coursework.Open())
        return false;
    if (m_new) {
        if (!CreateRecord())
            return false;
    } else {
        if (!m_coursework.MoveToRecord(m_courseworkId)) {
            setResult(QDialog::Rejected);
            return false;
        }
        m_courseId = m_coursework.GetCourseID();
    }
    m_opened = true;
    // Asked once the course is known, so that a course chosen from the list
    // shows its weight field too.
    ShowWeightForCourse();
    LoadEntry();
    ShowEntry();
    if (!m_new)
        m_export->CheckLinks(m_courseworkId);
    return true;
}

bool CourseworkDlg::ChooseCourse()
{
    std::vector<ListChooserDlg::Item> courses;
    for (quint32 courseId : GetSemesterCourses())
        courses.push_back({CCourseTable::GetCourseNameFromID(courseId), courseId});
    const std::optional<quint32> chosen =
        ListChooserDlg::Choose(this, CourseworkStrings::AddCourseworkTo(), courses);
    if (!chosen)
        return false;
    m_courseId = *chosen;
    return true;
}

bool CourseworkDlg::CreateRecord()
{
    CourseTypeList types;
    LoadCourseTypes(m_courseId, types);

    CTransaction transaction;
    m_coursework.NewRecord(0);
    m_coursework.SetCourseID(m_courseId);
    m_coursework.SetCwTypeID(types.empty() ? 0 : types.front().first);
    m_coursework.SetDueDate(
        BrindleDate::FromDateTime(QDateTime(BrindleClock::Today().addDays(1), QTime(23, 59))));
    m_coursework.SetTextbookID(0);
    m_coursework.SetWeight(0.0);
    m_coursework.SetCompleted(0);
    if (!m_coursework.UpdateRecord())
        return false;
    m_courseworkId = m_coursework.GetRecordID();
    return transaction.Commit() != 0;
}

void CourseworkDlg::LoadEntry()
{
    m_entry.name = m_coursework.GetCourseworkName();
    m_entry.typeId = m_coursework.GetCwTypeID();
    m_entry.due = BrindleDate::ToDateTime(m_coursework.GetDueDate());
    // As the grade calculation sees them: in prediction mode the predicted ones.
    const EffectiveScore effective = GetEffectiveScore(m_coursework);
    m_entry.score = FromStored(effective.score);
    m_entry.possible = FromStored(effective.possible);
    m_entry.weight = m_coursework.GetWeight();
    m_entry.progress = std::min<int>(m_coursework.GetCompleted(), 100);
    m_entry.textbookId = m_coursework.GetTextbookID();
    m_entry.details = m_coursework.GetDetails();
    m_saved = m_entry;
}

void CourseworkDlg::ShowEntry()
{
    m_infoPage->SetProgress(m_entry.progress);
    m_infoPage->NameEdit()->setText(m_entry.name);
    m_infoPage->DueDateEdit()->setDateTime(m_entry.due);
    m_detailsPage->SetText(m_entry.details);
    m_infoPage->ScoreEdit()->SetValue(m_entry.score);
    m_infoPage->OutOfEdit()->SetValue(m_entry.possible);
    m_infoPage->WeightEdit()->SetValue(m_entry.weight);
    FillTextbooks(m_entry.textbookId);
    FillTypes(m_entry.typeId);
}

void CourseworkDlg::CollectEntry()
{
    m_entry.name = m_infoPage->NameEdit()->text();
    m_entry.typeId = m_infoPage->TypeList()->currentData().toUInt();
    m_entry.due = m_infoPage->DueDateEdit()->dateTime();
    m_entry.score = m_infoPage->ScoreEdit()->Value();
    m_entry.possible = m_infoPage->OutOfEdit()->Value();
    m_entry.weight = m_infoPage->WeightEdit()->Value();
    m_entry.progress = std::clamp(m_infoPage->Progress(), 0, 100);
    m_entry.textbookId = m_infoPage->TextbookList()->currentData().toUInt();
    m_entry.details = m_detailsPage->Text();
}

void CourseworkDlg::FillTypes(quint32 selectedTypeId)
{
    QComboBox* list = m_infoPage->TypeList();
    list->clear();
    CourseTypeList types;
    LoadCourseTypes(m_courseId, types);
    for (const auto& [typeId, position] : types)
        list->addItem(CCwTypeTable::GetCwTypeNameFromID(typeId), QVariant::fromValue<uint>(typeId));
    list->setCurrentIndex(std::max(0, list->findData(QVariant::fromValue<uint>(selectedTypeId))));
}

void CourseworkDlg::FillTextbooks(quint32 selectedTextbookId)
{
    QComboBox* list = m_infoPage->TextbookList();
    list->clear();
    list->addItem(CourseworkStrings::NoTextbook(), QVariant::fromValue<uint>(0));

    CTextbookTable textbook;
    textbook.Open();
    for (quint32 textbookId : GetTextbookIDsInOrder(m_courseId))
        if (textbook.MoveToRecord(textbookId))
            list->addItem(textbook.GetTextbookName(), QVariant::fromValue<uint>(textbookId));
    // A textbook that was deleted (or never chosen) shows as "No Textbook".
    const int index =
        selectedTextbookId == 0 ? 0 : list->findData(QVariant::fromValue<uint>(selectedTextbookId));
    list->setCurrentIndex(std::max(0, index));
}

void CourseworkDlg::ShowWeightForCourse()
{
    m_infoPage->SetWeightShown(CGradingPolicyTable::GetWeightingFromCourseID(m_courseId) ==
                               CGradingPolicyTable::WeightPerItem);
}

void CourseworkDlg::OnPointsEdited()
{
    if (m_infoPage->ScoreEdit()->Value() != CNumericEdit::EmptyValue &&
        m_infoPage->OutOfEdit()->Value() != CNumericEdit::EmptyValue)
        m_infoPage->SetProgress(100);
}

QString CourseworkDlg::Refusal(QWidget** field) const
{
    *field = m_infoPage->NameEdit();
    if (m_entry.name.isEmpty())
        return CourseworkStrings::NameEmpty();
    // Empty fields are allowed (no score, no points, no weight); typed
    // numbers count from 0 up.
    auto negative = [](double value) { return value != CourseworkEntry::None && value < 0.0; };
    *field = m_infoPage->ScoreEdit();
    if (negative(m_entry.score))
        return CourseworkStrings::ScoreOutOfRange();
    *field = m_infoPage->OutOfEdit();
    if (negative(m_entry.possible))
        return CourseworkStrings::OutOfOutOfRange();
    // A hidden weight is stored as it stands; only a shown one is the user's to fix.
    *field = m_infoPage->WeightEdit();
    if (m_infoPage->WeightShown() && negative(m_entry.weight))
        return CourseworkStrings::WeightOutOfRange();
    return QString();
}

bool CourseworkDlg::Save()
{
    if (!m_opened)
        return false;
    QWidget* field = nullptr;
    if (const QString refusal = Refusal(&field); !refusal.isEmpty()) {
        BrindleMessageBox::Warn(this, refusal);
        // The field to fix, with what was typed in it, ready for new typing.
        m_pages->setCurrentWidget(m_infoPage);
        field->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(field))
            edit->selectAll();
        return false;
    }

    CTransaction transaction;
    m_coursework.SetCourseworkName(m_entry.name);
    m_coursework.SetCwTypeID(m_entry.typeId);
    m_coursework.SetDueDate(BrindleDate::FromDateTime(m_entry.due));
    m_coursework.SetCompleted(static_cast<quint16>(m_entry.progress));
    CPredictionStore& prediction = CPredictionStore::Instance();
    if (prediction.IsActive()) {
        prediction.SetOverride(m_courseworkId,
                               EffectiveScore{ToStored(m_entry.score), ToStored(m_entry.possible),
                                              EffectiveScore::Overridden});
    } else {
        m_coursework.SetScore(ToStored(m_entry.score));
        m_coursework.SetPossible(ToStored(m_entry.possible));
    }
    m_coursework.SetWeight(m_entry.weight);
    m_coursework.SetTextbookID(m_entry.textbookId);
    m_coursework.SetDetails(m_entry.details);

    const bool gradeChanged = m_entry.score != m_saved.score ||
                              m_entry.possible != m_saved.possible ||
                              m_entry.weight != m_saved.weight;
    const bool saved = m_coursework.UpdateRecord() != 0;
    if (saved && gradeChanged)
        RecomputeCourseGrade(m_courseId);
    if (!saved)
        transaction.Rollback();
    if (!saved || !transaction.Commit()) {
        // The record is read again, so that the next OK compares with what
        // the file holds and writes every change once more.
        m_coursework.Reload();
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    m_saved = m_entry;
    return true;
}

bool CourseworkDlg::OnOK()
{
    QStringList failures;
    {
        // The save and the links of the export land together.
        const CourseworkEntry saved = m_saved;
        CollectEntry();
        CTransaction transaction;
        if (!Save())
            return false;
        failures = m_export->Export(m_courseworkId);
        if (!transaction.Commit()) {
            // Nothing was kept: compare the next OK with what the file holds.
            m_coursework.Reload();
            m_saved = saved;
            BrindleMessageBox::WarnNotSaved(this);
            return false;
        }
    }
    // Reported once the coursework is safely saved; they do not undo it.
    for (const QString& failure : failures)
        BrindleMessageBox::Warn(this, failure);
    m_finished = true;
    QDialog::accept();
    return true;
}

void CourseworkDlg::OnCancel()
{
    if (m_opened && m_new && !m_finished) {
        CTransaction transaction;
        if (m_coursework.MoveToRecord(m_courseworkId))
            m_coursework.DeleteRecord(0);
        transaction.Commit();
    }
    m_finished = true;
    QDialog::reject();
}

void CourseworkDlg::accept()
{
    OnOK();
}

void CourseworkDlg::reject()
{
    OnCancel();
}

void CourseworkDlg::OnAddCwType()
{
    GradingDlg grading(m_courseId, true, this);
    if (DialogRunner::Run(grading) != QDialog::Accepted)
        return;
    // The policy changed as through "Edit Grading Policy...": the grade
    // follows, and so may the weight field.
    RecomputeCourseGrade(m_courseId);
    FillTypes(m_infoPage->TypeList()->currentData().toUInt());
    ShowWeightForCourse();
}

void CourseworkDlg::OnAddTextbook()
{
    CourseDlg course(this);
    course.SetStartOnBooks(true);
    course.SetCourse(m_courseId);
    if (DialogRunner::Run(course) != QDialog::Accepted)
        return;
    FillTextbooks(m_infoPage->TextbookList()->currentData().toUInt());
}
