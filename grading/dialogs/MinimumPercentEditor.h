#pragma once

#include "GradingDlgEntries.h"

#include <QWidget>

class CNumericEdit;
class QLabel;

// The pane that edits the minimum percent of one grade.
class MinimumPercentEditor : public QWidget
{
    Q_OBJECT

public:
    explicit MinimumPercentEditor(QWidget* parent = nullptr);

    void Load(const MinimumPercentEntry& entry);
    // The typed percent; the numeric field's empty value when nothing is typed.
    double Value() const;

    CNumericEdit* PercentEdit() const { return m_percent; }

private:
    QLabel* m_grade;
    CNumericEdit* m_percent;
};
