#pragma once

#include "grading/GradeScalesFile.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QPushButton;
class QTreeWidget;

// The "Grade Scale" page of InstitutionDlg: the scale selector and the grade
// list with its New / Edit / Delete buttons. It shows what the dialog gives
// it and reports what the user asks for.
class InstitutionDlgScalePage : public QWidget
{
    Q_OBJECT

public:
    explicit InstitutionDlgScalePage(QWidget* parent = nullptr);

    void SetScaleNames(const QStringList& names, int selected);
    void ShowGrades(const std::vector<GradeScaleEntry>& grades, int selectedRow);
    // -1 when no grade is selected.
    int SelectedRow() const;

    QComboBox* ScaleCombo() const { return m_scaleCombo; }
    QTreeWidget* GradeList() const { return m_gradeList; }

signals:
    void ScaleChosen(int index);
    void NewRequested();
    void EditRequested(int row);
    void DeleteRequested(int row);

private:
    void UpdateButtons();

    QComboBox* m_scaleCombo;
    QTreeWidget* m_gradeList;
    QPushButton* m_newButton;
    QPushButton* m_editButton;
    QPushButton* m_deleteButton;
};
