#pragma once

#include "grading/GpaPlanner.h"
#include "grading/GradePlanner.h"

#include <QDialog>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class CNumericEdit;
class QComboBox;
class QLabel;
class QListWidget;
class QTabWidget;
class QTreeWidget;

// "Grade Planner": for one course of the semester on view, what each grade
// needs on the coursework not graded yet, the best and worst case, and what
// the grading policy may do unexpectedly; for the semester, what a target GPA
// needs. Reads only.
class GradePlannerDlg : public QDialog
{
    Q_OBJECT

public:
    // Starts on courseId when it is one of the semester's courses.
    explicit GradePlannerDlg(quint32 courseId, QWidget* parent = nullptr);

    int CourseCount() const { return static_cast<int>(m_courseIds.size()); }
    int SelectedCourse() const { return m_selectedCourse; }
    void SelectCourse(int index);

    const std::vector<CGradePlanner::Need>& Needs() const { return m_needs; }
    int SelectedGrade() const { return m_selectedGrade; }
    void SelectGrade(int row);
    // The selected grade's answer in words.
    QString NeedText() const { return m_needText; }
    QStringList AssumedTexts() const { return m_assumedTexts; }
    QString BestCaseText() const { return m_bestText; }
    QString WorstCaseText() const { return m_worstText; }
    QStringList WarningTexts() const { return m_warningTexts; }

    // Answers a typed target GPA (empty: the prompt).
    void SetTargetGpa(const QString& text);
    QString GpaAnswerText() const { return m_gpaText; }

    QTabWidget* Pages() const { return m_pages; }

private:
    void ShowCourse();
    void ShowGrade();
    void AnswerGpa();

    std::vector<quint32> m_courseIds;
    int m_selectedCourse = -1;
    std::unique_ptr<CGradePlanner> m_planner;
    std::vector<CGradePlanner::Need> m_needs;
    int m_selectedGrade = -1;
    QString m_needText;
    QStringList m_assumedTexts;
    QString m_bestText;
    QString m_worstText;
    QStringList m_warningTexts;
    std::unique_ptr<CGpaPlanner> m_gpaPlanner; // made on the first question
    QString m_gpaText;

    QComboBox* m_courseCombo;
    QLabel* m_nowLabel;
    QLabel* m_bestLabel;
    QLabel* m_worstLabel;
    QTabWidget* m_pages;
    QTreeWidget* m_needList;
    QLabel* m_needLabel;
    QListWidget* m_assumedList;
    QLabel* m_mayFallLabel;
    QLabel* m_warningLabel;
    CNumericEdit* m_gpaEdit;
    QLabel* m_gpaLabel;
};
