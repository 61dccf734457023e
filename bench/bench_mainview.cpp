// How fast the main view fills its list and its grade bar on a large
// database, beside raw SQLite reads of the same rows (the floor), and how
// long Brindle takes to show its main window beside a bare Qt window.
//
// Prints one line per figure: NAME: median_ms=X floor_ms=Y ratio=Z
// Build it in Release: a Debug build measures Qt's unoptimised inlines, not
// the program's work.
#include "BenchSupport.h"
#include "app/CourseworkListFill.h"
#include "app/CourseworkListModel.h"
#include "app/GradeBarText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int Runs = 41;

// The median of Runs runs after one untimed run that warms the statement
// cache and the page cache.
double TimeIt(const std::function<void()>& work)
{
    work();
    return BenchSupport::MedianMs(Runs, work);
}

using BenchSupport::Report;

// The rows a list of the working semester reads, straight from SQLite into
// the least a row needs.
struct RawRow
{
    quint32 id;
    QString name;
    quint32 type;
    double due, score, possible;
    int completed;
};

class CRawReader
{
public:
    explicit CRawReader(sqlite3* db)
    {
        sqlite3_prepare_v2(
            db,
            "SELECT c.id, c.CourseName FROM CourseOrder o JOIN Course c ON c.id = o.CourseID "
            "WHERE o.SemesterID = ?1 ORDER BY o.CoursePosition",
            -1, &m_courses, nullptr);
        sqlite3_prepare_v2(
            db,
            "SELECT id, CourseworkName, CwTypeID, DueDate, Score, Possible, Completed "
            "FROM Coursework WHERE CourseID = ?1 ORDER BY id",
            -1, &m_items, nullptr);
        sqlite3_prepare_v2(
            db,
            "SELECT c.CurrentGrade, c.CourseHours, g.Grade, g.MinimumPercent FROM CourseOrder o "
            "JOIN Course c ON c.id = o.CourseID JOIN GradingPolicyGrade g ON g.CourseID = c.id "
            "WHERE o.SemesterID = ?1",
            -1, &m_grades, nullptr);
    }
    ~CRawReader()
    {
        sqlite3_finalize(m_courses);
        sqlite3_finalize(m_items);
        sqlite3_finalize(m_grades);
    }

    std::vector<RawRow> Course(quint32 courseId)
    {
        std::vector<RawRow> rows;
        ReadItems(courseId, rows);
        return rows;
    }

    std::vector<RawRow> Semester()
    {
        std::vector<RawRow> rows;
        sqlite3_bind_int64(m_courses, 1, 0);
        while (sqlite3_step(m_courses) == SQLITE_ROW) {
            rows.push_back({static_cast<quint32>(sqlite3_column_int64(m_courses, 0)),
                            Text(m_courses, 1), 0, 0, 0, 0, 0});
            ReadItems(static_cast<quint32>(sqlite3_column_int64(m_courses, 0)), rows);
        }
        sqlite3_reset(m_courses);
        return rows;
    }

    double Grades()
    {
        double sum = 0.0;
        sqlite3_bind_int64(m_grades, 1, 0);
        while (sqlite3_step(m_grades) == SQLITE_ROW)
            sum += sqlite3_column_double(m_grades, 0) + sqlite3_column_double(m_grades, 1) +
                   sqlite3_column_int(m_grades, 2) + sqlite3_column_double(m_grades, 3);
        sqlite3_reset(m_grades);
        return sum;
    }

private:
    static QString Text(sqlite3_stmt* stmt, int column)
    {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, column)),
                                 sqlite3_column_bytes(stmt, column));
    }

    void ReadItems(quint32 courseId, std::vector<RawRow>& rows)
    {
        sqlite3_bind_int64(m_items, 1, courseId);
        while (sqlite3_step(m_items) == SQLITE_ROW)
            rows.push_back({static_cast<quint32>(sqlite3_column_int64(m_items, 0)),
                            Text(m_items, 1),
                            static_cast<quint32>(sqlite3_column_int64(m_items, 2)),
                            sqlite3_column_double(m_items, 3), sqlite3_column_double(m_items, 4),
                            sqlite3_column_double(m_items, 5), sqlite3_column_int(m_items, 6)});
        sqlite3_reset(m_items);
    }

    sqlite3_stmt* m_courses = nullptr;
    sqlite3_stmt* m_items = nullptr;
    sqlite3_stmt* m_grades = nullptr;
};

double TimeProcess(const QString& program, const QStringList& arguments, int runs)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        QElapsedTimer timer;
        timer.start();
        process.start(program, arguments);
        if (!process.waitForFinished(60000) || process.exitCode() != 0) {
            std::fprintf(stderr, "%s failed: %s\n", qPrintable(program),
                         process.readAllStandardError().constData());
            return -1.0;
        }
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    return BenchSupport::Median(times);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Brindle.db"));
    QElapsedTimer generation;
    generation.start();
    if (!BenchSupport::MountGenerated(path))
        return 1;
    const DemoSize size = BenchSupport::GeneratedSize;
    const QDate today = QDate::currentDate();
    CCeMount* mount = CDataTable::GetMount();
    std::printf("# generated %d semesters, %d courses, %d coursework in %lld ms\n", size.semesters,
                size.courses, size.coursework, static_cast<long long>(generation.elapsed()));

    CAppStateTable& state = CAppStateTable::Instance();
    state.SetViewTabDueBy(BrindleDate::FromDate(today.addDays(14)));
    state.SetShowDone(1);
    const QDateTime now = QDateTime::currentDateTime();
    CCourseworkListModel model;
    CRawReader raw(mount->Handle());

    const double semesterFloor = TimeIt([&] { raw.Semester(); });
    static const char* const TabNames[] = {
        "fill_all_courses_no_filter", "fill_all_courses_cw_type", "fill_all_courses_past_due",
        "fill_all_courses_course_week", "fill_all_courses_due_by"};
    state.SetCurrentCourseID(AllCoursesID);
    for (quint32 tab = 0; tab < 5; ++tab) {
        state.SetCurrentTabID(static_cast<CViewTabTable::ViewTabIDs>(tab));
        const double median =
            TimeIt([&] { model.SetRows(FillCourseworkRows(CourseworkFilter::FromState(now))); });
        Report(TabNames[tab], median, semesterFloor);
    }

    const quint32 courseId = GetSemesterCourses().front();
    state.SetCurrentCourseID(courseId);
    state.SetCurrentTabID(CViewTabTable::NoFilter);
    const double courseFloor = TimeIt([&] { raw.Course(courseId); });
    Report("fill_one_course",
           TimeIt([&] { model.SetRows(FillCourseworkRows(CourseworkFilter::FromState(now))); }),
           courseFloor);

    const double gradesFloor = TimeIt([&] { raw.Grades(); });
    Report("grade_bar_course", TimeIt([&] { GradeBarText(); }), gradesFloor);
    state.SetCurrentCourseID(AllCoursesID);
    Report("grade_bar_gpa", TimeIt([&] { GradeBarText(); }), gradesFloor);

    // The whole program on that database, against a bare window.
    state.UpdateRecord();
    state.Close();
    mount->Unmount();
    const QString bin = QCoreApplication::applicationDirPath();
    const double bare = TimeProcess(bin + QStringLiteral("/bench_bare_window"), {}, 7);
    const double brindle =
        TimeProcess(bin + QStringLiteral("/../bin/brindle"),
                    {QStringLiteral("--database"), path, QStringLiteral("--quit-after-show")}, 7);
    if (bare > 0 && brindle > 0)
        Report("start_to_main_window", brindle, bare);
    return 0;
}
