// The rows of the main list: each tab's due-date window, headers per course,
// the order of equal due dates, Show Done, the type filter, the overdue mark
// and the semester on view.
// Checked against: an item 99 % done not marked overdue.
#include "BrindleData.h"
#include "app/CourseworkListFill.h"
#include "support/DatabaseTest.h"
#include "support/Records.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

double Due(int month, int day, int hour = 0, int minute = 0)
{
    return BrindleDate::FromDateTime(QDateTime(QDate(2024, month, day), QTime(hour, minute)));
}

// The texts of the rows, one word each: headers marked with '#', overdue
// items with '!'.
QString Texts(const std::vector<CourseworkRow>& rows)
{
    QStringList texts;
    for (const CourseworkRow& row : rows)
        texts << (row.isHeader ? u"#"_s : QString()) + row.text +
                     (row.overdue ? u"!"_s : QString());
    return texts.join(u' ');
}

} // namespace

class TestCourseworkList : public DatabaseTest
{
    Q_OBJECT

private slots:
    // Biology's items are stored out of date order, so that the list has to sort
    // them; C, A and B share a due time. History holds one item, done; Empty none.
    void init()
    {
        DatabaseTest::init();
        m_biology = Records::Course(u"Biology"_s);
        Records::Course(u"Empty"_s);
        const quint32 history = Records::Course(u"History"_s);
        const quint32 labs = Records::CwType(m_biology, u"Labs"_s);
        m_quizzes = Records::CwType(m_biology, u"Quizzes"_s);
        const struct
        {
            const char16_t* name;
            bool quiz;
            double due;
            quint16 completed;
        } items[] = {
            {u"After", false, Due(9, 13), 0},         {u"C", false, Due(9, 10, 23, 59), 0},
            {u"NextSun", true, Due(9, 8, 23, 59), 0}, {u"A", false, Due(9, 10, 23, 59), 0},
            {u"LastSat", false, Due(8, 31, 23), 0},   {u"TodayLate", false, Due(9, 7, 23, 59), 0},
            {u"B", false, Due(9, 10, 23, 59), 0},     {u"Sunday", false, Due(9, 1), 100},
            {u"DueBy", true, Due(9, 12, 23, 59), 0},  {u"Morning", false, Due(9, 7, 9), 99},
            {u"NextMon", false, Due(9, 9, 8), 0}};
        for (const auto& item : items)
            Records::Coursework(m_biology, item.quiz ? m_quizzes : labs,
                                QString::fromUtf16(item.name), -1, -1, item.due, item.completed);
        Records::Coursework(history, Records::CwType(history, u"Essays"_s), u"Essay"_s, -1, -1,
                            Due(9, 4, 12), 150);
        m_archived = Records::Semester(u"Spring 2024"_s);
        const quint32 old = Records::Course(u"Old"_s, m_archived);
        Records::Coursework(old, Records::CwType(old, u"Labs"_s), u"OldLab"_s, -1, -1, Due(3, 1));
    }

    void rows_data()
    {
        QTest::addColumn<uint>("tab");
        QTest::addColumn<bool>("allCourses");
        QTest::addColumn<bool>("showDone");
        QTest::addColumn<int>("today"); // of September 2024, at 10:00
        QTest::addColumn<bool>("archived");
        QTest::addColumn<QString>("expected");

        const QString open = u"LastSat! Morning! TodayLate NextSun NextMon C A B DueBy"_s;
        // The stored type (quizzes) counts on the type tab of one course only.
        QTest::newRow("no filter: by due date, ties in record order, done left out")
            << 0u << false << false << 7 << false << open + u" After"_s;
        QTest::newRow("due by takes the whole day") << 4u << false << false << 7 << false << open;
        QTest::newRow("type tab, one course")
            << 1u << false << false << 7 << false << u"NextSun DueBy"_s;
        QTest::newRow("type tab, all courses: every type, no header without items")
            << 1u << true << false << 7 << false << u"#Biology "_s + open + u" After"_s;
        QTest::newRow("past due keeps today's later items")
            << 2u << true << false << 7 << false << u"#Biology LastSat! Morning! TodayLate"_s;
        QTest::newRow("past due, show done: 99 is not done, 150 is")
            << 2u << true << true << 7 << false
            << u"#Biology LastSat! Sunday Morning! TodayLate #History Essay"_s;
        QTest::newRow("course week on a Saturday, from Sunday 0:00")
            << 3u << false << true << 7 << false << u"Sunday Morning! TodayLate NextSun"_s;
        QTest::newRow("course week on a Sunday")
            << 3u << false << false << 8 << false << u"NextSun NextMon C A B DueBy After"_s;
        QTest::newRow("archived semester on view")
            << 0u << true << false << 7 << true << u"#Old OldLab!"_s;
    }
    void rows()
    {
        QFETCH(uint, tab);
        QFETCH(bool, allCourses);
        QFETCH(bool, showDone);
        QFETCH(int, today);
        QFETCH(bool, archived);
        QFETCH(QString, expected);
        if (archived)
            CAppStateTable::Instance().SetCurrentSemesterID(m_archived);
        CourseworkFilter filter;
        filter.tab = static_cast<CViewTabTable::ViewTabIDs>(tab);
        filter.courseId = allCourses ? AllCoursesID : m_biology;
        filter.cwTypeId = m_quizzes;
        filter.dueBy = Due(9, 12, 18); // as the picker stores it; the time must not count
        filter.showDone = showDone;
        filter.now = QDateTime(QDate(2024, 9, today), QTime(10, 0));
        QCOMPARE(Texts(FillCourseworkRows(filter)), expected);
    }

    void dueWindow_data()
    {
        QTest::addColumn<uint>("tab");
        QTest::addColumn<QDate>("today");
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        QTest::newRow("course week across a year")
            << 3u << QDate(2024, 12, 31) << QDate(2024, 12, 29) << QDate(2025, 1, 5);
        QTest::newRow("a tab past the fourth")
            << 7u << QDate(2024, 9, 7) << QDate(1, 1, 1) << QDate(9999, 12, 31);
    }
    void dueWindow()
    {
        QFETCH(uint, tab);
        QFETCH(QDate, today);
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        const auto window =
            DueWindow(static_cast<CViewTabTable::ViewTabIDs>(tab), today, Due(9, 12));
        QCOMPARE(BrindleDate::ToDate(window.first), from);
        QCOMPARE(BrindleDate::ToDate(window.second), to);
        QCOMPARE(window.second - window.first, static_cast<double>(from.daysTo(to)));
    }

private:
    quint32 m_biology = 0, m_quizzes = 0, m_archived = 0;
};

QTEST_GUILESS_MAIN(TestCourseworkList)
#include "tst_courseworklist.moc"
