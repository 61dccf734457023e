#pragma once

#include "grading/GradeBreakdown.h"

#include <QDialog>
#include <QString>
#include <QStringList>

#include <vector>

class ProgressReportCalculation;
class QLabel;
class QTreeWidget;

// "Progress Report": for one course, how much of each coursework type is done
// and what it scores so far, the totals and the course's grade. Read-only.
class ProgressReportDlg : public QDialog
{
    Q_OBJECT

public:
    struct Row
    {
        QString name;
        int courseworkCount = 0;
        int completedCount = 0;
        double fraction = -1.0; // -1.0: nothing to show
        QString gradeText;
    };

    explicit ProgressReportDlg(quint32 courseId, QWidget* parent = nullptr);

    // Fills the rows and lines from the course's types and stored grade.
    void Load();

    QString CourseName() const { return m_courseName; }
    const std::vector<Row>& Rows() const { return m_rows; }
    QString CompletionText() const { return m_completionText; }
    QString GradeText() const { return m_gradeText; }
    // "Final grade between ... and ...": the course grade with 0 % and with
    // 100 % on everything not graded yet; empty when neither has a score.
    QString BandText() const { return m_bandText; }
    QStringList WarningTexts() const { return m_warningTexts; }
    const GradeBreakdown& Breakdown() const { return m_breakdown; }

    // The "Grade Planner..." button closes the report and asks the main
    // frame to open the planner on the same course.
    bool PlannerRequested() const { return m_plannerRequested; }
    void RequestPlanner();

    // "%d of %d completed" and "-" or the percent with its grade.
    static QString CountText(const Row& row);
    static QString ScoreText(const Row& row);

private:
    void ShowRows();
    void LoadPlanning();

    quint32 m_courseId;
    QString m_courseName;
    std::vector<Row> m_rows;
    QString m_completionText;
    QString m_gradeText;
    QString m_bandText;
    QStringList m_warningTexts;
    GradeBreakdown m_breakdown;
    bool m_plannerRequested = false;

    QLabel* m_titleLabel;
    QTreeWidget* m_rowList;
    QLabel* m_completionLabel;
    QLabel* m_gradeLabel;
    QLabel* m_bandLabel;
    QLabel* m_warningLabel;
    ProgressReportCalculation* m_calculation;
};
