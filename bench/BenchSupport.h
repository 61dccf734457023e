#pragma once

// What the benchmarks share: the generated database they measure on, medians
// of repeated runs and the one line each figure is printed in.
#include "BrindleData.h"
#include "app/DemoDatabase.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace BenchSupport {

// 40 semesters, 320 courses, 20,000 coursework; the working semester holds 8
// courses and 600 coursework.
inline constexpr DemoSize GeneratedSize{40, 320, 20000, 8, 600};

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The median of runs timed runs of work, in milliseconds; prepare runs before
// each run, untimed.
inline double MedianMs(int runs, const std::function<void()>& work,
                       const std::function<void()>& prepare = {})
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        if (prepare)
            prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    return Median(times);
}

inline void Report(const char* name, double median, double floor)
{
    std::printf("%s: median_ms=%.3f floor_ms=%.3f ratio=%.2f\n", name, median, floor,
                median / floor);
    std::fflush(stdout);
}

// Mounts a fresh database at path, opens the application state and fills the
// database with the generated records.
inline bool MountGenerated(const QString& path)
{
    SetDatabasePath(path);
    CCeMount* mount = CDataTable::GetMount();
    return mount->MountPath(path) && CreateDatabase() && CAppStateTable::Instance().OpenState() &&
           BuildDemoDatabase(QDate::currentDate(), GeneratedSize);
}

// A benchmark's application with a generated database (MountGenerated) in a
// temporary folder of its own, which goes when the benchmark ends.
class GeneratedApp
{
public:
    GeneratedApp(int& argc, char** argv) : m_app(argc, argv), m_ok(MountGenerated(Path())) {}

    bool Ok() const { return m_ok; }
    QString Path() const { return m_folder.filePath(QStringLiteral("Brindle.db")); }

private:
    QCoreApplication m_app;
    QTemporaryDir m_folder;
    bool m_ok;
};

} // namespace BenchSupport
