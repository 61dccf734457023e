#pragma once

#include <QWidget>

class CNumericEdit;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QSlider;

// The "Coursework Info" page: name, type, due date, score and points
// possible, textbook, weight (only under Per Item weighting) and progress.
// Shows and collects; the dialog fills and reads it.
class CourseworkDlgInfoPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 100;

    explicit CourseworkDlgInfoPage(QWidget* parent = nullptr);

    void SetWeightShown(bool shown);
    bool WeightShown() const;
    // Moves the progress control and its "%d%%" text together.
    void SetProgress(int percent);
    int Progress() const;

    QLineEdit* NameEdit() const { return m_name; }
    QComboBox* TypeList() const { return m_types; }
    QDateTimeEdit* DueDateEdit() const { return m_dueDate; }
    CNumericEdit* ScoreEdit() const { return m_score; }
    CNumericEdit* OutOfEdit() const { return m_outOf; }
    QComboBox* TextbookList() const { return m_textbooks; }
    CNumericEdit* WeightEdit() const { return m_weight; }
    QSlider* ProgressSlider() const { return m_progress; }
    QLabel* ProgressText() const { return m_progressText; }

private:
    QLineEdit* m_name;
    QComboBox* m_types;
    QDateTimeEdit* m_dueDate;
    CNumericEdit* m_score;
    CNumericEdit* m_outOf;
    QComboBox* m_textbooks;
    QLabel* m_weightLabel;
    CNumericEdit* m_weight;
    QSlider* m_progress;
    QLabel* m_progressText;
};
