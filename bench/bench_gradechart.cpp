// Times one repaint of the report card's chart for ordinary and extreme
// percents (a score over a tiny "Out Of" gives millions of percent). Every
// case should take the same few milliseconds. Prints medians.
#include "grading/dialogs/GradeChart.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

double MedianRepaintMs(double fraction)
{
    GradeChart chart;
    std::vector<GradeChart::Course> courses;
    for (int i = 0; i < 8; ++i)
        courses.push_back({QStringLiteral("Course %1").arg(i),
                           i == 0 ? fraction : 0.6 + i * 0.05,
                           {{QStringLiteral("A"), 90},
                            {QStringLiteral("B"), 80},
                            {QStringLiteral("C"), 70},
                            {QStringLiteral("D"), 60}}});
    chart.SetCourses(std::move(courses));
    chart.resize(chart.sizeHint());
    std::vector<double> times;
    for (int run = 0; run < 21; ++run) {
        QElapsedTimer timer;
        timer.start();
        const QPixmap picture = chart.grab();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const struct
    {
        const char* name;
        double fraction;
    } cases[] = {{"87 %", 0.87},
                 {"950000 %", 9500.0},
                 {"1e16 %", 1e14},
                 {"largest double", std::numeric_limits<double>::max()}};
    for (const auto& c : cases)
        std::printf("chart repaint, one course at %-15s %8.3f ms\n", c.name,
                    MedianRepaintMs(c.fraction));
    return 0;
}
