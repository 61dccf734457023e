// What the user reads of a grade: percents rounded up without binary noise,
// whole numbers of any size, a point whatever the locale, and a grade that is
// not a number shown and counted as no score.
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

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();

// A course of the default scale A to D with minimum percents 90 to 60.
quint32 GradedCourse(const QString& name, double grade)
{
    const quint32 course = Records::Course(name, 0, grade);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    return course;
}

// Switches the C library and Qt to German numbers (a decimal comma) while
// alive; false when the system has no such locale.
class GermanNumbers
{
public:
    GermanNumbers()
    {
        m_ok = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }
    ~GermanNumbers()
    {
        std::setlocale(LC_NUMERIC, "C");
        QLocale::setDefault(QLocale::c());
    }
    bool IsAvailable() const { return m_ok; }

private:
    bool m_ok = false;
};

} // namespace

class TestGradeText : public QObject
{
    Q_OBJECT

private slots:
    void percent_data();
    void percent();
    void numberToText_data();
    void numberToText();
    void pointWhateverTheLocale_data();
    void pointWhateverTheLocale();
    void notANumberIsNoScore_data();
    void notANumberIsNoScore();
};

void TestGradeText::percent_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<QString>("shown");

    // Exact percents whose product with 10000 lands a hair above the whole.
    QTest::newRow("28 of 50") << 28.0 / 50.0 << QStringLiteral("56");
    QTest::newRow("7 of 100") << 7.0 / 100.0 << QStringLiteral("7");
    QTest::newRow("0.57 lands below") << 0.57 << QStringLiteral("57");
    // A true excess still rounds up to the next hundredth.
    QTest::newRow("0.87341") << 0.87341 << QStringLiteral("87.35");
    QTest::newRow("0.87501") << 0.87501 << QStringLiteral("87.51");
    QTest::newRow("0.87654") << 0.87654 << QStringLiteral("87.66");
    QTest::newRow("1 of 3") << 1.0 / 3.0 << QStringLiteral("33.34");
    QTest::newRow("1.05") << 1.05 << QStringLiteral("105");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0");
}

void TestGradeText::percent()
{
    QFETCH(double, fraction);
    QFETCH(QString, shown);
    QCOMPARE(GradeText::NumberToText(GradeText::PercentOf(fraction)), shown);
}

void TestGradeText::numberToText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("small whole") << 12.0 << QStringLiteral("12");
    QTest::newRow("2^31") << 2147483648.0 << QStringLiteral("2147483648");
    QTest::newRow("2^32") << 4294967296.0 << QStringLiteral("4294967296");
    QTest::newRow("negative large") << -3e9 << QStringLiteral("-3000000000");
    QTest::newRow("1e20") << 1e20 << QStringLiteral("100000000000000000000");
    QTest::newRow("large percent") << GradeText::PercentOf(9500.0) << QStringLiteral("950000");
    QTest::newRow("fraction") << 3.25 << QStringLiteral("3.25");
    QTest::newRow("a hair below whole") << 99.9999999 << QStringLiteral("100");
}

void TestGradeText::numberToText()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(GradeText::NumberToText(value), text);
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

    GermanNumbers german;
    if (!german.IsAvailable())
        QSKIP("the de_DE.UTF-8 locale is not installed");
    QString shown;
    if (where == QLatin1String("bar") || where == QLatin1String("gpa")) {
        shown = GradeBarText();
    } else if (where == QLatin1String("progress")) {
        ProgressReportDlg dialog(course);
        shown = dialog.GradeText();
    } else {
        ReportCardDlg dialog;
        QCOMPARE(dialog.Rows().size(), size_t(1));
        shown = ReportCardDlg::ScoreText(dialog.Rows().front());
    }
    QCOMPARE(shown, expected);
}

void TestGradeText::notANumberIsNoScore_data()
{
    QTest::addColumn<double>("grade");
    QTest::newRow("0/0") << NaN;
    QTest::newRow("negative 0/0") << -NaN;
    QTest::newRow("infinite") << Inf;
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
    ProgressReportDlg progress(odd);
    QCOMPARE(progress.GradeText(), QStringLiteral("No Score"));
    ReportCardDlg card;
    QCOMPARE(card.Rows().size(), size_t(2));
    QCOMPARE(ReportCardDlg::ScoreText(card.Rows().back()), QString());
    QCOMPARE(GetSemesterGPA(false, false), 3.0);
    QCOMPARE(GetCumulativeGPA(false), 3.0);
}

QTEST_MAIN(TestGradeText)
#include "tst_gradetext.moc"
