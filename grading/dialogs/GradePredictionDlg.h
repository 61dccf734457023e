#pragma once

#include <QDialog>
#include <QString>

#include <vector>

class QComboBox;
class QMenu;
class QTreeWidget;

// "Grade Prediction": the percent every ungraded coursework of a type is
// assumed to receive while prediction mode is on, per course and type. Edits
// stay in the dialog until OK, which replaces the prediction store's scores to
// give; nothing is recomputed here.
class GradePredictionDlg : public QDialog
{
    Q_OBJECT

public:
    static constexpr double NoPercent = -1.0;

    struct TypeEntry
    {
        quint32 cwTypeId = 0;
        QString name;
        double percent = NoPercent; // 0..100
    };
    struct CourseEntry
    {
        quint32 courseId = 0;
        QString name;
        std::vector<TypeEntry> types;
    };

    explicit GradePredictionDlg(QWidget* parent = nullptr);

    // Reads the courses of the semester on view, their types in type order and
    // the store's scores to give.
    void Load();
    // Writes every entry with a percent into the prediction store, replacing
    // what it held.
    void Save();

    const std::vector<CourseEntry>& Courses() const { return m_courses; }
    int SelectedCourse() const { return m_selected; }
    void SelectCourse(int index);

    // Edit Percent on a row of the shown course: asks for the value and takes
    // it; false when the user cancelled.
    bool EditPercent(int row);
    void SetPercent(int row, double percent);
    void ClearPercent(int row);

    // The row's menu: "Edit Percent", and "Clear Percent" when it has one.
    QMenu* MakeContextMenu(int row, QWidget* parent);

    static QString PercentText(double percent);

    void accept() override;

private:
    void ShowCourse();
    void ShowRow(int row);
    void OnContextMenu(const QPoint& position);
    TypeEntry* Entry(int row);

    std::vector<CourseEntry> m_courses;
    int m_selected = -1;

    QComboBox* m_courseCombo;
    QTreeWidget* m_typeList;
};
