// What the user reads of a grade: percents rounded up without binary noise,
// whole numbers of any size, a point whatever the locale, and a grade that is
// not a number shown and counted as no score. (Rounding rows that the grade
// calculation test already has for the cut percent are not repeated here.)
//
// Fault tried and caught: PercentOf always rounding up, noise too ("28 of 50",
// "7 of 100").
#include "BrindleData.h"
#include "app/GradeBarText.h"
#include "grading/Grading.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

#include <clocale>
#include <cmath>
#include <limits>

namespace {

// A course of the default scale A to D with minimum percents 90 to 60.
quint32 GradedCourse(const QString& name, double grade)
{
    const quint32 course = Records::Course(name, 0, grade);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    return course;
}

} // namespace

class TestGradeText : public QObject
{
    Q_OBJECT

private slots:
    void numberToText_data();
    void numberToText();
    void pointWhateverTheLocale_data();
    void pointWhateverTheLocale();
    void notANumberIsNoScore_data();
    void notANumberIsNoScore();
};

void TestGradeText::numberToText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("asPercent"); // a fraction through PercentOf first
    QTest::addColumn<QString>("text");

    // Exact percents whose product with 10000 lands a hair above the whole.
    QTest::newRow("28 of 50") << 28.0 / 50.0 << true << QStringLiteral("56");
    QTest::newRow("7 of 100") << 7.0 / 100.0 << true << QStringLiteral("7");
    // A true excess still rounds up to the next hundredth.
    QTest::newRow("0.87501") << 0.87501 << true << QStringLiteral("87.51");
    QTest::newRow("1 of 3") << 1.0 / 3.0 << true << QStringLiteral("33.34");
    QTest::newRow("1.05, not cut") << 1.05 << true << QStringLiteral("105");
    QTest::newRow("large percent") << 9500.0 << true << QStringLiteral("950000");
    QTest::newRow("small whole") << 12.0 << false << QStringLiteral("12");
    QTest::newRow("2^31") << 2147483648.0 << false << QStringLiteral("2147483648");
    QTest::newRow("2^32") << 4294967296.0 << false << QStringLiteral("4294967296");
    QTest::newRow("negative large") << -3e9 << false << QStringLiteral("-3000000000");
    QTest::newRow("1e20") << 1e20 << false << QStringLiteral("100000000000000000000");
    QTest::newRow("fraction") << 3.25 << false << QStringLiteral("3.25");
    QTest::newRow("a hair below whole") << 99.9999999 << false << QStringLiteral("100");
}

void TestGradeText::numberToText()
{
    QFETCH(double, value);
    QFETCH(bool, asPercent);
    QFETCH(QString, text);
    QCOMPARE(GradeText::NumberToText(asPercent ? GradeText::PercentOf(value) : value), text);
}

void TestGradeText::pointWhateverTheLocale_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("expected");

    QTest::newRow("grade bar") << QStringLiteral("bar") << QStringLiteral("Grade: 87.35% B");
    QTest::newRow("progress report") << QStringLiteral("progress")
                                     << QStringLiteral("Grade: 87.35% B");
    QTest::newRow("report card row") << QStringLiteral("card") << QStringLiteral("87.35% B");
    QTest::newRow("GPA") << QStringLiteral("gpa") << QStringLiteral("GPA: 3.00");
}

void TestGradeText::pointWhateverTheLocale()
{
    QFETCH(QString, where);
    QFETCH(QString, expected);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = GradedCourse(QStringLiteral("Art"), 0.87341);
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentCourseID(where == QLatin1String("gpa") ? AllCoursesID : course);
    state.UpdateRecord();

    // German numbers (a decimal comma) in the C library and in Qt.
    const bool german = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const auto restore = qScopeGuard([] {
        std::setlocale(LC_NUMERIC, "C");
        QLocale::setDefault(QLocale::c());
    });
    if (!german)
        QSKIP("the de_DE.UTF-8 locale is not installed");
    QString shown;
    if (where == QLatin1String("bar") || where == QLatin1String("gpa")) {
        shown = GradeBarText();
    } else if (where == QLatin1String("progress")) {
        shown = ProgressReportDlg(course).GradeText();
    } else {
        ReportCardDlg dialog;
        QCOMPARE(dialog.Rows().size(), size_t(1));
        shown = ReportCardDlg::ScoreText(dialog.Rows().front());
    }
    QCOMPARE(shown, expected);
}

void TestGradeText::notANumberIsNoScore_data()
{
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<double>("grade");
    QTest::newRow("0/0") << NaN;
    QTest::newRow("negative 0/0") << -NaN;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
}

void TestGradeText::notANumberIsNoScore()
{
    QFETCH(double, grade);
    TestDatabase db;
    QVERIFY(db.IsReady());
    GradedCourse(QStringLiteral("Biology"), 0.85); // a B: 3 points
    const quint32 odd = GradedCourse(QStringLiteral("Chemistry"), grade);

    // Kept as computed...
    CCourseTable table;
    QVERIFY(table.Open() && table.MoveToRecord(odd));
    QVERIFY(!std::isfinite(table.GetCurrentGrade()));

    // ...but shown as no score everywhere and left out of every GPA.
    QCOMPARE(CourseGradeText(odd), QStringLiteral("Grade: --"));
    QCOMPARE(ProgressReportDlg(odd).GradeText(), QStringLiteral("No Score"));
    ReportCardDlg card;
    QCOMPARE(card.Rows().size(), size_t(2));
    QCOMPARE(ReportCardDlg::ScoreText(card.Rows().back()), QString());
    QCOMPARE(GetSemesterGPA(false, false), 3.0);
    QCOMPARE(GetCumulativeGPA(false), 3.0);
}

QTEST_MAIN(TestGradeText)
#include "tst_gradetext.moc"
