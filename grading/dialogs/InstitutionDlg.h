#pragma once

#include "grading/GradeScalesFile.h"

#include <QDialog>

#include <vector>

class InstitutionDlgGpaPage;
class InstitutionDlgScalePage;
class QTabWidget;

// "Institution Info": the institution's grade scale (picked from the stored
// one, a predefined scale of GradeScales.txt or built by hand) and the past
// hours and points of the cumulative GPA. Nothing is written before OK.
class InstitutionDlg : public QDialog
{
    Q_OBJECT

public:
    // Grade numbers above 11 earn no points, so a longer scale is refused.
    static constexpr int MaxGrades = 12;

    explicit InstitutionDlg(QWidget* parent = nullptr);

    // Reads the stored scale, the predefined scales and the GPA information.
    void Load();
    // Checks the working copy and writes it in one transaction; false (after
    // telling the user why) when it cannot be saved.
    bool Save();

    // The selector's entries: "Current", the file's scales, "Custom".
    QStringList ScaleNames() const;
    int ScaleChoice() const { return m_scaleChoice; }
    void ChooseScale(int index);

    const std::vector<GradeScaleEntry>& Grades() const { return m_grades; }
    // New Grade Point / Edit Grade Point through their sub-dialog; false when
    // cancelled or refused.
    bool NewGrade();
    bool EditGrade(int row);
    // Adds without asking; false (with a message) when the scale is full.
    bool AddGrade(const GradeScaleEntry& grade);
    void DeleteGrade(int row);

    InstitutionDlgScalePage* ScalePage() const { return m_scalePage; }
    InstitutionDlgGpaPage* GpaPage() const { return m_gpaPage; }

    void accept() override;

private:
    void ShowGrades(int selectedRow = -1);
    // Each false when a write failed; the caller rolls everything back.
    bool WriteScale();
    static bool RebuildMinimumPercents(int gradeCount);
    static bool WriteGpaInfo(bool showWithHours, double pastHours, double pastPoints);

    std::vector<GradeScaleEntry> m_grades;
    GradeScale m_storedScale;
    std::vector<GradeScale> m_predefined;
    int m_scaleChoice = 0;

    QTabWidget* m_tabs;
    InstitutionDlgScalePage* m_scalePage;
    InstitutionDlgGpaPage* m_gpaPage;
};
