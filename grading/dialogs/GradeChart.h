#pragma once

#include <QString>
#include <QWidget>

#include <vector>

// A picture of the report card: one row per course, its current percent as a
// bar over the bands of its grade minimums, all rows on one percent scale.
// Display only: the report card hands it the numbers.
class GradeChart : public QWidget
{
    Q_OBJECT

public:
    struct Band
    {
        QString gradeName;
        double minimum = 0.0; // percent, 0..100
    };
    struct Course
    {
        QString name;
        double fraction = -1.0;  // the grade fraction; -1.0: no score
        std::vector<Band> bands; // best grade first
    };

    explicit GradeChart(QWidget* parent = nullptr);

    void SetCourses(std::vector<Course> courses);
    const std::vector<Course>& Courses() const { return m_courses; }

    // The highest percent the scale reaches, and the most axis steps.
    static constexpr double MaxScale = 200.0;
    static constexpr double MaxTicks = 10.0;

    // The percent range the rows share: from below every minimum and grade
    // shown, in tens, to 100 or the highest percent, at most MaxScale.
    double ScaleLow() const { return m_low; }
    double ScaleHigh() const { return m_high; }
    // The percents the axis marks, lowest first.
    std::vector<double> Ticks() const;

    // What the chart shows, one line per course ("Biology: 87.35% B"), for
    // screen readers (its accessible description).
    QString SpokenText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ComputeScale();
    int RowHeight() const;
    int NameWidth() const;
    void PaintRow(QPainter& painter, const Course& course, const QRect& track,
                  const QRect& name) const;
    void PaintAxis(QPainter& painter, const QRect& area) const;
    double XOf(const QRect& track, double percent) const;

    std::vector<Course> m_courses;
    double m_low = 50.0;
    double m_high = 100.0;
};
