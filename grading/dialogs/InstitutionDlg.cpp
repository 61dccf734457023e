#include "InstitutionDlg.h"

#include "BrindleData.h"
#include "GradePointDlg.h"
#include "InstitutionDlgGpaPage.h"
#include "InstitutionDlgScalePage.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/ReportStrings.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

InstitutionDlg::InstitutionDlg(QWidget* parent)
    : QDialog(parent), m_tabs(new QTabWidget(this)), m_scalePage(new InstitutionDlgScalePage(this)),
      m_gpaPage(new InstitutionDlgGpaPage(this))
{
    setObjectName(QStringLiteral("InstitutionDlg"));
    setWindowTitle(ReportStrings::InstitutionTitle());

    m_tabs->setObjectName(QStringLiteral("institutionTabs"));
    m_tabs->addTab(m_scalePage, ReportStrings::GradeScalePage());
    m_tabs->addTab(m_gpaPage, ReportStrings::GpaPage());

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(buttons);
    InstallHelp(this);

    connect(m_scalePage, &InstitutionDlgScalePage::ScaleChosen, this,
            [this](int index) { ChooseScale(index); });
    connect(m_scalePage, &InstitutionDlgScalePage::NewRequested, this, [this] { NewGrade(); });
    connect(m_scalePage, &InstitutionDlgScalePage::EditRequested, this,
            [this](int row) { EditGrade(row); });
    connect(m_scalePage, &InstitutionDlgScalePage::DeleteRequested, this,
            [this](int row) { DeleteGrade(row); });

    Load();
    // Wide enough for the longest scale name of the file.
    const int line = fontMetrics().height();
    resize(std::max(line * 26, minimumSizeHint().width()), line * 25);
}

void InstitutionDlg::Load()
{
    m_storedScale = {};
    m_storedScale.name = ReportStrings::CurrentScale();
    CGradeScaleTable scale;
    if (scale.Open()) {
        // Store order; a grade's number is its place in the list.
        for (int ok = scale.MoveFirst(1); ok; ok = scale.MoveNext(1)) {
            const size_t grade = scale.GetGrade();
            if (m_storedScale.grades.size() <= grade)
                m_storedScale.grades.resize(grade + 1);
            m_storedScale.grades[grade] = {scale.GetGradeName(), scale.GetGradePoints()};
        }
    }
    m_predefined = LoadPredefinedGradeScales();
    m_grades = m_storedScale.grades;
    m_scaleChoice = 0;
    m_scalePage->SetScaleNames(ScaleNames(), m_scaleChoice);
    ShowGrades(m_grades.empty() ? -1 : 0);

    double pastHours = 0.0;
    double pastPoints = 0.0;
    CGPAInfoTable gpa;
    if (gpa.Open() && gpa.MoveFirst(1)) {
        pastHours = gpa.GetTotalPastHours();
        pastPoints = gpa.GetTotalPastPoints();
    }
    m_gpaPage->Show(CAppStateTable::Instance().GetShowGPAWithHours() != 0, pastHours, pastPoints);
}

QStringList InstitutionDlg::ScaleNames() const
{
    QStringList names{ReportStrings::CurrentScale()};
    for (const GradeScale& scale : m_predefined)
        names.append(scale.name);
    names.append(ReportStrings::CustomScale());
    return names;
}

void InstitutionDlg::ChooseScale(int index)
{
    const int custom = static_cast<int>(m_predefined.size()) + 1;
    if (index < 0 || index > custom)
        return;
    m_scaleChoice = index;
    if (index == 0)
        m_grades = m_storedScale.grades;
    else if (index == custom)
        m_grades.clear(); // a scale of the user's own, built grade by grade
    else
        m_grades = m_predefined[static_cast<size_t>(index - 1)].grades;
    m_scalePage->SetScaleNames(ScaleNames(), m_scaleChoice);
    ShowGrades(m_grades.empty() ? -1 : 0);
}

bool InstitutionDlg::AddGrade(const GradeScaleEntry& grade)
{
    if (static_cast<int>(m_grades.size()) >= MaxGrades) {
        BrindleMessageBox::Warn(this, ReportStrings::TooManyGrades(MaxGrades));
        return false;
    }
    m_grades.push_back(grade);
    ShowGrades(static_cast<int>(m_grades.size()) - 1);
    return true;
}

bool InstitutionDlg::NewGrade()
{
    if (static_cast<int>(m_grades.size()) >= MaxGrades) {
        BrindleMessageBox::Warn(this, ReportStrings::TooManyGrades(MaxGrades));
        return false;
    }
    GradePointDlg editor(GradePointDlg::NewGradePoint, this);
    if (DialogRunner::Run(editor) != QDialog::Accepted)
        return false;
    return AddGrade({editor.Name(), editor.Points()});
}

bool InstitutionDlg::EditGrade(int row)
{
    if (row < 0 || row >= static_cast<int>(m_grades.size()))
        return false;
    GradeScaleEntry& grade = m_grades[static_cast<size_t>(row)];
    GradePointDlg editor(GradePointDlg::EditGradePoint, this);
    editor.SetGradePoint(grade.name, grade.points);
    if (DialogRunner::Run(editor) != QDialog::Accepted)
        return false;
    grade = {editor.Name(), editor.Points()};
    ShowGrades(row);
    return true;
}

void InstitutionDlg::DeleteGrade(int row)
{
    if (row < 0 || row >= static_cast<int>(m_grades.size()))
        return;
    m_grades.erase(m_grades.begin() + row);
    ShowGrades(std::min(row, static_cast<int>(m_grades.size()) - 1));
}

void InstitutionDlg::ShowGrades(int selectedRow)
{
    m_scalePage->ShowGrades(m_grades, selectedRow);
}

bool InstitutionDlg::Save()
{
    if (m_grades.empty() || static_cast<int>(m_grades.size()) > MaxGrades) {
        m_tabs->setCurrentWidget(m_scalePage);
        BrindleMessageBox::Warn(this, m_grades.empty() ? ReportStrings::NoGrades()
                                                       : ReportStrings::TooManyGrades(MaxGrades));
        return false;
    }
    const double pastHours = m_gpaPage->PastHours();
    const double pastPoints = m_gpaPage->PastPoints();
    if (pastHours < 0.0 || pastPoints < 0.0) {
        m_tabs->setCurrentWidget(m_gpaPage);
        BrindleMessageBox::Warn(this, ReportStrings::PastValuesNegative());
        return false;
    }

    // Scale, minimums and GPA information land together or not at all.
    CTransaction transaction;
    if (!WriteScale() || !WriteGpaInfo(m_gpaPage->ShowWithHours(), pastHours, pastPoints) ||
        !transaction.Commit()) {
        transaction.Rollback();
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    // The store copies the flag into the state's record; the long-lived state
    // object must not write its old copy back on its next update.
    CAppStateTable::Instance().SetShowGPAWithHours(m_gpaPage->ShowWithHours() ? 1 : 0);
    return true;
}

void InstitutionDlg::accept()
{
    if (Save())
        QDialog::accept();
}

bool InstitutionDlg::WriteScale()
{
    CGradeScaleTable scale;
    if (!scale.Open())
        return false;
    bool ok = true;
    const int gradeCount = static_cast<int>(m_grades.size());
    if (scale.GetRecordCount() == gradeCount) {
        // Same number of grades: names and points change, every course's
        // minimum percents stay.
        for (int found = scale.MoveFirst(1); found; found = scale.MoveNext(1)) {
            const size_t grade = scale.GetGrade();
            if (grade >= m_grades.size())
                continue;
            scale.SetGradePoints(m_grades[grade].points);
            scale.SetGradeName(m_grades[grade].name);
            ok = scale.UpdateRecord() && ok;
        }
        return ok;
    }

    for (int found = scale.MoveFirst(1); found; found = scale.MoveNext(1))
        ok = scale.DeleteRecord(0) && ok;
    for (int grade = 0; grade < gradeCount; ++grade) {
        scale.NewRecord(0);
        scale.SetGrade(static_cast<quint16>(grade));
        scale.SetGradeName(m_grades[static_cast<size_t>(grade)].name);
        scale.SetGradePoints(m_grades[static_cast<size_t>(grade)].points);
        ok = scale.UpdateRecord() && ok;
    }
    scale.Close();
    return RebuildMinimumPercents(gradeCount) && ok;
}

// A new number of grades: every course of every semester gets minimums falling
// evenly from just under 100 down to its old lowest minimum.
bool InstitutionDlg::RebuildMinimumPercents(int gradeCount)
{
    CCourseOrderTable order;
    if (!order.Open())
        return false;
    bool ok = true;
    for (int found = order.MoveFirst(1); found; found = order.MoveNext(1)) {
        const quint32 courseId = order.GetCourseID();
        CGradingPolicyGradeTable minimums;
        if (!minimums.Open(0))
            return false;
        const CCeDBProp key(courseId);
        minimums.SetSeekValue(&key, CDataTable::SeekValueEqual);
        double lowest = 100.0;
        for (int row = minimums.MoveFirst(1); row; row = minimums.MoveNext(1)) {
            lowest = std::min(lowest, minimums.GetMinimumPercent());
            ok = minimums.DeleteRecord(0) && ok;
        }
        const double step = (100.0 - lowest) / gradeCount;
        for (int grade = 0; grade < gradeCount; ++grade) {
            minimums.NewRecord(0);
            minimums.SetCourseID(courseId);
            minimums.SetGrade(static_cast<quint16>(grade));
            minimums.SetMinimumPercent(std::trunc(100.0 - (grade + 1) * step));
            ok = minimums.UpdateRecord() && ok;
        }
    }
    return ok;
}

bool InstitutionDlg::WriteGpaInfo(bool showWithHours, double pastHours, double pastPoints)
{
    CGPAInfoTable gpa;
    if (gpa.Open() && gpa.MoveFirst(1)) {
        gpa.SetWeightedByCourseHours(showWithHours ? 1 : 0);
        gpa.SetTotalPastHours(pastHours);
        gpa.SetTotalPastPoints(pastPoints);
        return gpa.UpdateRecord() != 0;
    }
    // No GPA record to carry the flag (nothing is created): the state keeps
    // it alone.
    CAppStateTable::Instance().SetShowGPAWithHours(showWithHours ? 1 : 0);
    return CAppStateTable::Instance().UpdateRecord() != 0;
}
