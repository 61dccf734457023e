// Saves the size of one dialog OK, in a loop, until it is killed: a new course
// with its times and books, a coursework save with the grade recomputed, a
// grading-policy OK, a course removal. tst_crashsafety kills it at random
// moments and checks that every save landed whole or not at all.
//
// Usage: brindle_kill_harness DATABASE SEED. Prints "ready" once the database
// is open, then one "." per committed save.
#include "BrindleData.h"
#include "app/DatabaseOpener.h"
#include "editors/CourseRemoval.h"
#include "grading/GradeCalculation.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include <cmath>
#include <cstdio>

namespace {

// A new course as the course editor's OK leaves it: its record, its default
// grading policy, its order row, its meeting times and textbooks. The details
// say how many times and books the save wrote, for the checker.
bool NewCourse(QRandomGenerator& random, int number)
{
    const int times = random.bounded(0, 5);
    const int books = random.bounded(0, 4);
    CTransaction transaction;
    CCourseTable course;
    if (!course.Open() || !course.NewRecord(0))
        return false;
    course.SetCourseName(QStringLiteral("Course %1").arg(number));
    course.SetDetails(QStringLiteral("times=%1 books=%2").arg(times).arg(books));
    if (!course.UpdateRecord())
        return false;
    const quint32 courseId = course.GetRecordID();
    CreateDefaultGradingPolicy(courseId);

    CCourseOrderTable order;
    bool ok = order.Open() && order.NewRecord(0);
    order.SetCourseID(courseId);
    order.SetSemesterID(0);
    order.SetCoursePosition(order.GetRecordCount());
    ok = ok && order.UpdateRecord();
    CTimeTable time;
    ok = ok && time.Open();
    for (int i = 0; ok && i < times; ++i) {
        time.NewRecord(0);
        time.SetForeignRecordID(courseId);
        time.SetDayOfWeek(static_cast<quint16>(1 << i));
        ok = time.UpdateRecord();
    }
    CTextbookTable book;
    CTextbookOrderTable bookOrder;
    ok = ok && book.Open() && bookOrder.Open();
    for (int i = 0; ok && i < books; ++i) {
        book.NewRecord(0);
        book.SetCourseID(courseId);
        book.SetTextbookName(QStringLiteral("Reader %1").arg(i));
        ok = book.UpdateRecord();
        bookOrder.NewRecord(0);
        bookOrder.SetCourseID(courseId);
        bookOrder.SetTextbookID(book.GetRecordID());
        bookOrder.SetTextbookPosition(static_cast<quint16>(i));
        ok = ok && bookOrder.UpdateRecord();
    }
    return ok && transaction.Commit() != 0;
}

// The coursework editor's OK: a scored item written, the course grade recomputed.
bool SaveCoursework(QRandomGenerator& random, quint32 courseId)
{
    CourseTypeList types;
    LoadCourseTypes(courseId, types);
    CTransaction transaction;
    CCourseworkTable item;
    if (types.empty() || !item.Open() || !item.NewRecord(0))
        return false;
    item.SetCourseID(courseId);
    item.SetCwTypeID(types.front().first);
    item.SetCourseworkName(QStringLiteral("Quiz"));
    item.SetScore(random.bounded(0, 101));
    item.SetPossible(100.0);
    if (!item.UpdateRecord())
        return false;
    RecomputeCourseGrade(courseId);
    return transaction.Commit() != 0;
}

// The grading policy editor's OK: every minimum percent and every type weight
// moved by one offset, so that a half-written policy shows.
bool SavePolicy(QRandomGenerator& random, quint32 courseId)
{
    const int offset = random.bounded(0, 10);
    const CCeDBProp key(courseId);
    CTransaction transaction;
    CGradingPolicyGradeTable minimums;
    CGradeScaleTable scale;
    CCwTypeTable types;
    bool ok = minimums.Open(0) && scale.Open() && types.Open(0);
    const double count = scale.GetRecordCount();
    minimums.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int more = ok && minimums.MoveFirst(1); more; more = minimums.MoveNext(1)) {
        minimums.SetMinimumPercent(std::trunc(100.0 - (minimums.GetGrade() + 1) * (40.0 / count)) -
                                   offset);
        ok = ok && minimums.UpdateRecord();
    }
    types.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int more = ok && types.MoveFirst(1); more; more = types.MoveNext(1)) {
        types.SetWeight(offset);
        ok = ok && types.UpdateRecord();
    }
    return ok && transaction.Commit() != 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    SetDatabasePath(arguments[1]);
    CDatabaseOpener opener(false);
    if (!opener.Open()) {
        std::fprintf(stderr, "%s\n", qPrintable(opener.ErrorText()));
        return 1;
    }
    std::printf("ready\n");
    std::fflush(stdout);

    QRandomGenerator random(arguments[2].toUInt());
    for (int number = 0;; ++number) {
        const std::vector<quint32> courses = GetSemesterCourses(0);
        const quint32 course =
            courses.empty() ? 0 : courses[static_cast<size_t>(random.bounded(int(courses.size())))];
        const int pick = random.bounded(100);
        bool saved = false;
        // Between 3 and 12 courses, so that every run finds work of each kind.
        if (courses.size() < 3 || (pick < 30 && courses.size() <= 12))
            saved = NewCourse(random, number);
        else if (courses.size() > 12 || pick >= 85)
            saved = RemoveCourse(course);
        else if (pick < 60)
            saved = SaveCoursework(random, course);
        else
            saved = SavePolicy(random, course);
        if (saved) {
            std::putchar('.');
            std::fflush(stdout);
        }
    }
}
