#pragma once

#include <QDialog>
#include <QString>

#include <vector>

class GradeChart;
class QLabel;
class QTreeWidget;

// "Report Card": the semester on view at a glance, its GPA, in-major GPA and
// cumulative GPA, each course's percent and grade, and a chart of those
// percents against the courses' grade minimums. Read-only.
class ReportCardDlg : public QDialog
{
    Q_OBJECT

public:
    struct Row
    {
        quint32 courseId = 0;
        QString name;
        double fraction = -1.0; // negative: no grade
        quint16 grade = 0;
        QString gradeName;
    };

    explicit ReportCardDlg(QWidget* parent = nullptr);

    // Computes the three GPA lines and the course rows.
    void Load();

    QString GpaText() const { return m_gpaText; }
    QString MajorGpaText() const { return m_majorGpaText; }
    QString CumulativeGpaText() const { return m_cumulativeGpaText; }
    const std::vector<Row>& Rows() const { return m_rows; }
    GradeChart* Chart() const { return m_chart; }

    // "GPA: 3.250", or the bare "GPA:" for the no-GPA value -1.0.
    static QString GpaLineText(const QString& label, double gpa);
    // "87.51% B+"; empty for a course with no grade.
    static QString ScoreText(const Row& row);

private:
    void ShowRows();
    void ShowChart();

    QString m_gpaText;
    QString m_majorGpaText;
    QString m_cumulativeGpaText;
    std::vector<Row> m_rows;

    QLabel* m_gpaLabel;
    QLabel* m_majorGpaLabel;
    QLabel* m_cumulativeGpaLabel;
    QTreeWidget* m_courseList;
    GradeChart* m_chart;
};
