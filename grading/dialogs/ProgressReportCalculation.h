#pragma once

#include "grading/GradeBreakdown.h"

#include <QTreeWidget>

// The progress report's "How the grade is worked out": one row per type with
// its share of the course percent, under it each coursework with its score
// and whether it counted, was dropped (and why) or is not graded yet.
class ProgressReportCalculation : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ProgressReportCalculation(QWidget* parent = nullptr);

    void Fill(const GradeBreakdown& breakdown);

    // The texts of a type row and of a coursework row (name, score, state).
    static QString TypeText(const GradeBreakdown::Type& type);
    static QStringList ItemTexts(const GradeBreakdown::Item& item, quint32 weighting);
};
