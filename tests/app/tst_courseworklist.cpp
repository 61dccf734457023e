// The rows of the main list: each tab's due-date window, headers per course,
// the order of equal due dates, Show Done and the type filter.
#include "BrindleData.h"
#include "app/CourseworkListFill.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

double Due(int year, int month, int day, int hour = 0, int minute = 0)
{
    return BrindleDate::FromDateTime(QDateTime(QDate(year, month, day), QTime(hour, minute)));
}

// The texts of the rows, headers marked with '#'.
QStringList Texts(const std::vector<CourseworkRow>& rows)
{
    QStringList texts;
    for (const CourseworkRow& row : rows)
        texts << (row.isHeader ? u"#"_s + row.text : row.text);
    return texts;
}

CourseworkFilter Filter(CViewTabTable::ViewTabIDs tab, quint32 courseId, const QDateTime& now)
{
    CourseworkFilter filter;
    filter.tab = tab;
    filter.courseId = courseId;
    filter.now = now;
    return filter;
}

} // namespace

class TestCourseworkList : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

    void dueWindow_data();
    void dueWindow();
    void tabWindows_data();
    void tabWindows();
    void equalDueDatesKeepRecordOrder();
    void showDone_data();
    void showDone();
    void headerVanishesWhenCourseListsNothing();
    void typeFilterOnlyWithOneCourse();
    void overdueMark_data();
    void overdueMark();
    void otherSemestersStayOut();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestCourseworkList::dueWindow_data()
{
    QTest::addColumn<uint>("tab");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");

    const QDate first(1, 1, 1);
    const QDate last(9999, 12, 31);
    const QDate saturday(2024, 9, 7);
    QTest::newRow("no filter") << 0u << saturday << first << last;
    QTest::newRow("cw type") << 1u << saturday << first << last;
    QTest::newRow("past due ends today") << 2u << saturday << first << saturday;
    QTest::newRow("course week on a Saturday")
        << 3u << saturday << QDate(2024, 9, 1) << QDate(2024, 9, 8);
    QTest::newRow("course week on a Sunday")
        << 3u << QDate(2024, 9, 8) << QDate(2024, 9, 8) << QDate(2024, 9, 15);
    QTest::newRow("course week on a Wednesday")
        << 3u << QDate(2024, 9, 4) << QDate(2024, 9, 1) << QDate(2024, 9, 8);
    QTest::newRow("course week across a year")
        << 3u << QDate(2024, 12, 31) << QDate(2024, 12, 29) << QDate(2025, 1, 5);
    QTest::newRow("due by") << 4u << saturday << first << QDate(2024, 9, 12);
    QTest::newRow("a tab past the fourth") << 7u << saturday << first << last;
}

void TestCourseworkList::dueWindow()
{
    QFETCH(uint, tab);
    QFETCH(QDate, today);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    // The due-by date as the picker stores it, with a time of day that must not count.
    const double dueBy = Due(2024, 9, 12, 18, 0);
    const auto window = DueWindow(static_cast<CViewTabTable::ViewTabIDs>(tab), today, dueBy);
    QCOMPARE(BrindleDate::ToDate(window.first), from);
    QCOMPARE(BrindleDate::ToDate(window.second), to);
    QCOMPARE(window.second - window.first, static_cast<double>(from.daysTo(to)));
}

void TestCourseworkList::tabWindows_data()
{
    QTest::addColumn<uint>("tab");
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<QStringList>("expected");

    const QDateTime saturday(QDate(2024, 9, 7), QTime(10, 0));
    const QDateTime sunday(QDate(2024, 9, 8), QTime(10, 0));
    QTest::newRow("no filter, by due date")
        << 0u << saturday
        << QStringList{u"LastSat"_s,    u"Sunday"_s,     u"Yesterday"_s, u"TodayLate"_s,
                       u"NextSunday"_s, u"NextMonday"_s, u"DueByDay"_s,  u"After"_s};
    QTest::newRow("past due keeps today's later items")
        << 2u << saturday << QStringList{u"LastSat"_s, u"Sunday"_s, u"Yesterday"_s, u"TodayLate"_s};
    QTest::newRow("course week on a Saturday")
        << 3u << saturday
        << QStringList{u"Sunday"_s, u"Yesterday"_s, u"TodayLate"_s, u"NextSunday"_s};
    QTest::newRow("course week on a Sunday")
        << 3u << sunday << QStringList{u"NextSunday"_s, u"NextMonday"_s, u"DueByDay"_s, u"After"_s};
    QTest::newRow("due by takes the whole day")
        << 4u << saturday
        << QStringList{u"LastSat"_s,    u"Sunday"_s,     u"Yesterday"_s, u"TodayLate"_s,
                       u"NextSunday"_s, u"NextMonday"_s, u"DueByDay"_s};
}

void TestCourseworkList::tabWindows()
{
    QFETCH(uint, tab);
    QFETCH(QDateTime, now);
    QFETCH(QStringList, expected);

    const quint32 course = Records::Course(u"Biology"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    // Stored out of date order, so that the list has to sort them.
    Records::Coursework(course, type, u"After"_s, -1, -1, Due(2024, 9, 13, 0, 0));
    Records::Coursework(course, type, u"NextSunday"_s, -1, -1, Due(2024, 9, 8, 23, 59));
    Records::Coursework(course, type, u"LastSat"_s, -1, -1, Due(2024, 8, 31, 23, 0));
    Records::Coursework(course, type, u"TodayLate"_s, -1, -1, Due(2024, 9, 7, 23, 59));
    Records::Coursework(course, type, u"Sunday"_s, -1, -1, Due(2024, 9, 1, 0, 0));
    Records::Coursework(course, type, u"DueByDay"_s, -1, -1, Due(2024, 9, 12, 23, 59));
    Records::Coursework(course, type, u"Yesterday"_s, -1, -1, Due(2024, 9, 6, 18, 0));
    Records::Coursework(course, type, u"NextMonday"_s, -1, -1, Due(2024, 9, 9, 8, 0));

    CourseworkFilter filter = Filter(static_cast<CViewTabTable::ViewTabIDs>(tab), course, now);
    filter.dueBy = Due(2024, 9, 12);
    QCOMPARE(Texts(FillCourseworkRows(filter)), expected);
}

void TestCourseworkList::equalDueDatesKeepRecordOrder()
{
    const quint32 course = Records::Course(u"Biology"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    const double due = Due(2024, 9, 10, 23, 59);
    Records::Coursework(course, type, u"C"_s, -1, -1, due);
    Records::Coursework(course, type, u"A"_s, -1, -1, due);
    Records::Coursework(course, type, u"Late"_s, -1, -1, due + 1);
    Records::Coursework(course, type, u"B"_s, -1, -1, due);
    Records::Coursework(course, type, u"Early"_s, -1, -1, due - 0.25);

    const auto rows = FillCourseworkRows(
        Filter(CViewTabTable::NoFilter, course, QDateTime(QDate(2024, 9, 1), QTime(0, 0))));
    QCOMPARE(Texts(rows), (QStringList{u"Early"_s, u"C"_s, u"A"_s, u"B"_s, u"Late"_s}));
}

void TestCourseworkList::showDone_data()
{
    QTest::addColumn<bool>("showDone");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("off") << false << QStringList{u"Open"_s, u"Almost"_s};
    QTest::newRow("on") << true << QStringList{u"Open"_s, u"Almost"_s, u"Done"_s, u"Overdone"_s};
}

void TestCourseworkList::showDone()
{
    QFETCH(bool, showDone);
    QFETCH(QStringList, expected);
    const quint32 course = Records::Course(u"Biology"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    Records::Coursework(course, type, u"Open"_s, -1, -1, Due(2024, 9, 1), 0);
    Records::Coursework(course, type, u"Almost"_s, -1, -1, Due(2024, 9, 2), 99);
    Records::Coursework(course, type, u"Done"_s, -1, -1, Due(2024, 9, 3), 100);
    Records::Coursework(course, type, u"Overdone"_s, -1, -1, Due(2024, 9, 4), 150);

    CourseworkFilter filter =
        Filter(CViewTabTable::NoFilter, course, QDateTime(QDate(2024, 9, 1), QTime(0, 0)));
    filter.showDone = showDone;
    QCOMPARE(Texts(FillCourseworkRows(filter)), expected);
}

void TestCourseworkList::headerVanishesWhenCourseListsNothing()
{
    const quint32 biology = Records::Course(u"Biology"_s);
    const quint32 empty = Records::Course(u"Empty"_s);
    const quint32 history = Records::Course(u"History"_s);
    Q_UNUSED(empty);
    const quint32 bioType = Records::CwType(biology, u"Labs"_s);
    const quint32 histType = Records::CwType(history, u"Essays"_s);
    Records::Coursework(biology, bioType, u"Lab 1"_s, -1, -1, Due(2024, 9, 3), 100);
    Records::Coursework(history, histType, u"Essay 1"_s, -1, -1, Due(2024, 9, 4), 20);

    CourseworkFilter filter =
        Filter(CViewTabTable::NoFilter, AllCoursesID, QDateTime(QDate(2024, 9, 1), QTime(0, 0)));
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"#History"_s, u"Essay 1"_s}));

    filter.showDone = true;
    QCOMPARE(Texts(FillCourseworkRows(filter)),
             (QStringList{u"#Biology"_s, u"Lab 1"_s, u"#History"_s, u"Essay 1"_s}));

    // A window that leaves a course nothing removes its header too.
    filter.tab = CViewTabTable::PastDueTab;
    filter.now = QDateTime(QDate(2024, 9, 3), QTime(12, 0));
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"#Biology"_s, u"Lab 1"_s}));
}

void TestCourseworkList::typeFilterOnlyWithOneCourse()
{
    const quint32 course = Records::Course(u"Biology"_s);
    const quint32 labs = Records::CwType(course, u"Labs"_s);
    const quint32 quizzes = Records::CwType(course, u"Quizzes"_s);
    Records::Coursework(course, labs, u"Lab 1"_s, -1, -1, Due(2024, 9, 3));
    Records::Coursework(course, quizzes, u"Quiz 1"_s, -1, -1, Due(2024, 9, 4));
    Records::Coursework(course, labs, u"Lab 2"_s, -1, -1, Due(2024, 9, 5));

    CourseworkFilter filter =
        Filter(CViewTabTable::CwTypeTab, course, QDateTime(QDate(2024, 9, 1), QTime(0, 0)));
    filter.cwTypeId = labs;
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"Lab 1"_s, u"Lab 2"_s}));
    filter.cwTypeId = quizzes;
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"Quiz 1"_s}));

    // Under "All Courses" the type tab lists every type.
    filter.courseId = AllCoursesID;
    QCOMPARE(Texts(FillCourseworkRows(filter)),
             (QStringList{u"#Biology"_s, u"Lab 1"_s, u"Quiz 1"_s, u"Lab 2"_s}));
    // Another tab ignores the stored type.
    filter.courseId = course;
    filter.tab = CViewTabTable::NoFilter;
    QCOMPARE(FillCourseworkRows(filter).size(), size_t(3));
}

void TestCourseworkList::overdueMark_data()
{
    QTest::addColumn<double>("due");
    QTest::addColumn<int>("completed");
    QTest::addColumn<bool>("overdue");
    // Now is 10:00 on 7 September 2024.
    QTest::newRow("yesterday, open") << Due(2024, 9, 6, 23, 59) << 0 << true;
    QTest::newRow("this morning, half done") << Due(2024, 9, 7, 9, 0) << 50 << true;
    QTest::newRow("yesterday, done") << Due(2024, 9, 6, 23, 59) << 100 << false;
    QTest::newRow("tonight") << Due(2024, 9, 7, 23, 59) << 0 << false;
}

void TestCourseworkList::overdueMark()
{
    QFETCH(double, due);
    QFETCH(int, completed);
    QFETCH(bool, overdue);
    const quint32 course = Records::Course(u"Biology"_s);
    const quint32 type = Records::CwType(course, u"Labs"_s);
    Records::Coursework(course, type, u"Lab"_s, -1, -1, due, static_cast<quint16>(completed));
    CourseworkFilter filter =
        Filter(CViewTabTable::NoFilter, course, QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
    filter.showDone = true;
    const auto rows = FillCourseworkRows(filter);
    QCOMPARE(rows.size(), size_t(1));
    QCOMPARE(rows[0].overdue, overdue);
}

void TestCourseworkList::otherSemestersStayOut()
{
    const quint32 archived = Records::Semester(u"Spring 2024"_s);
    const quint32 old = Records::Course(u"Old"_s, archived);
    const quint32 current = Records::Course(u"Current"_s);
    Records::Coursework(old, Records::CwType(old, u"Labs"_s), u"Old lab"_s, -1, -1,
                        Due(2024, 3, 1));
    Records::Coursework(current, Records::CwType(current, u"Labs"_s), u"New lab"_s, -1, -1,
                        Due(2024, 9, 1));

    const CourseworkFilter filter =
        Filter(CViewTabTable::NoFilter, AllCoursesID, QDateTime(QDate(2024, 9, 1), QTime(0, 0)));
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"#Current"_s, u"New lab"_s}));

    CAppStateTable::Instance().SetCurrentSemesterID(archived);
    QCOMPARE(Texts(FillCourseworkRows(filter)), (QStringList{u"#Old"_s, u"Old lab"_s}));
}

QTEST_GUILESS_MAIN(TestCourseworkList)
#include "tst_courseworklist.moc"
