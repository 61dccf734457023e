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

// Score and points possible: an empty field means "none", -1.0.
double PointsOf(const CNumericEdit* edit)
{
    const double value = edit->Value();
    return value == CNumericEdit::EmptyValue ? -1.0 : value;
}

void ShowPoints(CNumericEdit* edit, double value)
{
    edit->SetValue(value == -1.0 ? CNumericEdit::EmptyValue : value);
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
    FillFields();
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

void CourseworkDlg::FillFields()
{
    m_infoPage->SetProgress(std::min<int>(m_coursework.GetCompleted(), 100));
    m_infoPage->NameEdit()->setText(m_coursework.GetCourseworkName());
    m_infoPage->DueDateEdit()->setDateTime(BrindleDate::ToDateTime(m_coursework.GetDueDate()));
    m_detailsPage->SetText(m_coursework.GetDetails());

    // As the grade calculation sees them: in prediction mode the predicted ones.
    const EffectiveScore effective = GetEffectiveScore(m_coursework);
    m_score = effective.score;
    m_possible = effective.possible;
    ShowPoints(m_infoPage->ScoreEdit(), m_score);
    ShowPoints(m_infoPage->OutOfEdit(), m_possible);
    m_infoPage->WeightEdit()->SetValue(m_coursework.GetWeight());

    FillTextbooks(m_coursework.GetTextbookID());
    FillTypes(m_coursework.GetCwTypeID());
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

    std::vector<std::pair<quint32, quint16>> order;
    CTextbookOrderTable rows;
    if (rows.Open(1)) {
        const CCeDBProp key(m_courseId);
        rows.SetSeekValue(&key, CDataTable::SeekValueEqual);
        for (int ok = rows.MoveFirst(1); ok; ok = rows.MoveNext(1))
            order.emplace_back(rows.GetTextbookID(), rows.GetTextbookPosition());
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const auto& a, const auto& b) { return a.second < b.second; });

    CTextbookTable textbook;
    textbook.Open();
    for (const auto& [textbookId, position] : order)
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

QString CourseworkDlg::RangeProblem() const
{
    // Empty fields are allowed (no score, no points, no weight); typed
    // numbers count from 0 up.
    auto negative = [](const CNumericEdit* edit) {
        const double value = edit->Value();
        return value != CNumericEdit::EmptyValue && value < 0.0;
    };
    if (negative(m_infoPage->ScoreEdit()))
        return CourseworkStrings::ScoreOutOfRange();
    if (negative(m_infoPage->OutOfEdit()))
        return CourseworkStrings::OutOfOutOfRange();
    // A hidden weight is stored as it stands; only a shown one is the user's to fix.
    if (m_infoPage->WeightShown() && negative(m_infoPage->WeightEdit()))
        return CourseworkStrings::WeightOutOfRange();
    return QString();
}

bool CourseworkDlg::Save()
{
    if (!m_opened)
        return false;
    m_coursework.SetCompleted(static_cast<quint16>(std::clamp(m_infoPage->Progress(), 0, 100)));

    const QString name = m_infoPage->NameEdit()->text();
    if (name.isEmpty()) {
        BrindleMessageBox::Warn(this, CourseworkStrings::NameEmpty());
        return false;
    }
    if (const QString problem = RangeProblem(); !problem.isEmpty()) {
        BrindleMessageBox::Warn(this, problem);
        return false;
    }

    CTransaction transaction;
    m_coursework.SetCourseworkName(name);
    m_coursework.SetCwTypeID(m_infoPage->TypeList()->currentData().toUInt());
    m_coursework.SetDueDate(BrindleDate::FromDateTime(m_infoPage->DueDateEdit()->dateTime()));

    const double possible = PointsOf(m_infoPage->OutOfEdit());
    const bool possibleChanged = possible != m_possible;
    const double score = PointsOf(m_infoPage->ScoreEdit());
    const bool scoreChanged = score != m_score;
    CPredictionStore& prediction = CPredictionStore::Instance();
    if (prediction.IsActive()) {
        prediction.SetOverride(m_courseworkId,
                               EffectiveScore{score, possible, EffectiveScore::Overridden});
    } else {
        m_coursework.SetScore(score);
        m_coursework.SetPossible(possible);
    }

    const double weight = m_infoPage->WeightEdit()->Value();
    const bool weightChanged = weight != m_coursework.GetWeight();
    m_coursework.SetWeight(weight);

    m_coursework.SetTextbookID(m_infoPage->TextbookList()->currentData().toUInt());
    m_coursework.SetDetails(m_detailsPage->Text());
    bool saved = m_coursework.UpdateRecord() != 0;
    if (saved && (scoreChanged || possibleChanged || weightChanged))
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
    m_score = score;
    m_possible = possible;
    return true;
}

bool CourseworkDlg::OnOK()
{
    QStringList failures;
    {
        // The save and the links of the export land together.
        const double score = m_score;
        const double possible = m_possible;
        CTransaction transaction;
        if (!Save())
            return false;
        failures = m_export->Export(m_courseworkId);
        if (!transaction.Commit()) {
            // Nothing was kept: compare the next OK with what the file holds.
            m_coursework.Reload();
            m_score = score;
            m_possible = possible;
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
