// The report dialogs as the user reads them: the progress report's rows and
// lines, a grade as every place shows it (under a comma locale, and a grade
// that is not a number as no score), the report card's GPA lines with the
// grade bar's, its rows and chart, and the grade planner dialog with where it
// is reached from (the Tools menu, the progress report), the grade bar's best
// and worst case and the GPA bar after the institution's OK. (The planner's
// answers: tst_gradecalculation.)
//
// Faults tried and caught: the report card's row testing for -1 instead of
// any score ("0/0", "infinite" show a percent); the grade bar's percent
// without its cut above 100, PercentOf for PercentOfCut ("above 100: the bar
// alone cuts").
#include "GradingFixtures.h"
#include "app/GradeBarText.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/GradePlannerDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "store/BrindleData.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include <clocale>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// One coursework of the test type: score, possible, completed percent.
struct Item
{
    double score;
    double possible;
    quint16 completed;
};

// A course with A to D at 90 / 80 / 70 / 60, weighting None.
quint32 Course(const QString& name, double grade = -1.0, bool inMajor = false, double hours = 3.0,
               quint32 semester = WorkingSemesterID)
{
    const quint32 course = Fixture::GradedCourse(name, grade, hours, inMajor, semester);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    return course;
}

// Homework 40/50 done, the final (50 points) still to come.
quint32 PlannedCourse(const QString& name)
{
    const quint32 course = Course(name);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    Records::Coursework(course, type, u"Homework 1"_s, 40.0, 50.0);
    Records::Coursework(course, type, u"Final"_s, -1.0, 50.0);
    RecomputeCourseGrade(course);
    return course;
}

QString LabelText(const QWidget& dialog, const QString& name)
{
    const auto* label = dialog.findChild<QLabel*>(name);
    return label ? label->text() : u"(no %1)"_s.arg(name);
}

QStringList RowTexts(const QTreeWidgetItem* item)
{
    QStringList texts;
    for (int column = 0; item && column < item->columnCount(); ++column)
        texts << item->text(column);
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<Item>)

class TestReports : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void typeRow_data()
    {
        QTest::addColumn<quint16>("drops");
        QTest::addColumn<std::vector<Item>>("items");
        QTest::addColumn<QString>("shown"); // the row's counts and score, the completion line

        QTest::newRow("no coursework")
            << quint16(0) << std::vector<Item>{} << u"0 of 0 completed|-|No Courseworks"_s;
        QTest::newRow("ungraded only, still counted")
            << quint16(0) << std::vector<Item>{{-1.0, 10.0, 100}, {-1.0, 20.0, 0}}
            << u"1 of 2 completed|-|1 of 2 courseworks completed"_s;
        QTest::newRow("graded and ungraded")
            << quint16(0) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}, {-1.0, 10.0, 0}}
            << u"2 of 3 completed|65% D|2 of 3 courseworks completed"_s;
        QTest::newRow("lowest dropped")
            << quint16(1) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}}
            << u"2 of 2 completed|80% B|2 of 2 courseworks completed"_s;
        QTest::newRow("done past 100 counts as completed")
            << quint16(0) << std::vector<Item>{{87.654, 100.0, 120}}
            << u"1 of 1 completed|87.66% B|1 of 1 courseworks completed"_s;
    }
    void typeRow()
    {
        QFETCH(quint16, drops);
        QFETCH(std::vector<Item>, items);
        QFETCH(QString, shown);

        const quint32 course = Course(u"Geology"_s);
        const quint32 type = Records::CwType(course, u"Labs"_s, 0.0, drops);
        for (const Item& item : items)
            Records::Coursework(course, type, u"Lab"_s, item.score, item.possible, 0.0,
                                item.completed);

        ProgressReportDlg dialog(course);
        auto* rows = dialog.findChild<QTreeWidget*>(u"typeRows"_s);
        QVERIFY(rows && rows->topLevelItemCount() == 1);
        QCOMPARE(RowTexts(rows->topLevelItem(0)) << LabelText(dialog, u"completionLabel"_s),
                 QString(u"Labs|"_s + shown).split(u'|'));
    }
    void typesInTypeOrderWithTotals()
    {
        const quint32 course = Course(u"Geology"_s);
        const quint32 labs = Records::CwType(course, u"Labs"_s, 0.0, 0, 2);
        const quint32 exams = Records::CwType(course, u"Exams"_s, 0.0, 0, 0);
        const quint32 quizzes = Records::CwType(course, u"Quizzes"_s, 0.0, 0, 1);
        Records::Coursework(course, labs, u"Lab 1"_s, 9.0, 10.0, 0.0, 100);
        Records::Coursework(course, labs, u"Lab 2"_s, -1.0, 10.0, 0.0, 40);
        Records::Coursework(course, exams, u"Midterm"_s, 71.0, 100.0, 0.0, 100);
        Records::Coursework(course, quizzes, u"Quiz 1"_s, -1.0, 5.0, 0.0, 0);
        // Another course's coursework stays out of this report.
        const quint32 other = Course(u"History"_s);
        Records::Coursework(other, Records::CwType(other, u"Labs"_s), u"Lab"_s, 1.0, 1.0, 0.0, 100);

        ProgressReportDlg dialog(course);
        QStringList rows;
        for (const auto& row : dialog.Rows())
            rows << row.name + u'|' + ProgressReportDlg::ScoreText(row);
        QCOMPARE(rows, (QStringList{u"Exams|71% C"_s, u"Quizzes|-"_s, u"Labs|90% A"_s}));
        QCOMPARE(dialog.CompletionText(), u"2 of 4 courseworks completed"_s);
    }

    void gradeEverywhere_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<double>("predicted"); // -1: prediction mode off
        // The progress report's line, the grade bar, the report card's row and GPA.
        QTest::addColumn<QString>("texts");

        const QString none = u"No Score|Grade: --||GPA:"_s;
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("no score") << -1.0 << -1.0 << none;
        // Kept as computed, but no score to show or to count.
        QTest::newRow("0/0") << nan << -1.0 << none;
        QTest::newRow("negative 0/0") << -nan << -1.0 << none;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << -1.0 << none;
        QTest::newRow("rounded up")
            << 0.87654 << -1.0 << u"Grade: 87.66% B|Grade: 87.66% B|87.66% B|GPA: 3.000"_s;
        QTest::newRow("shown as 90, graded on the unrounded value")
            << 0.899999 << -1.0 << u"Grade: 90% B|Grade: 90% B|90% B|GPA: 3.000"_s;
        QTest::newRow("above 100: the bar alone cuts")
            << 1.125 << -1.0 << u"Grade: 112.5% A|Grade: 112% A|112.5% A|GPA: 4.000"_s;
        QTest::newRow("zero is a score") << 0.0 << -1.0 << u"Grade: 0%|Grade: 0%|0%|GPA: 0.000"_s;
        QTest::newRow("predicted")
            << 0.72 << 0.95 << u"Grade: 95% A|Grade: 95% A|95% A|GPA: 4.000"_s;
    }
    void gradeEverywhere()
    {
        QFETCH(double, stored);
        QFETCH(double, predicted);
        QFETCH(QString, texts);

        // The texts read the stored grade; they do not recompute it.
        const quint32 course = Course(u"Geology"_s, stored);
        Records::CwType(course, u"Homework"_s);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        if (predicted >= 0.0) {
            CPredictionStore::Instance().SetActive(true);
            CPredictionStore::Instance().SetPredictedGrade(course, predicted);
        }
        // German numbers (a decimal comma) in Qt and, where installed, in C.
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const auto restore = qScopeGuard([] {
            std::setlocale(LC_NUMERIC, "C");
            QLocale::setDefault(QLocale::c());
        });

        ProgressReportDlg report(course);
        ReportCardDlg card;
        QVERIFY(card.Rows().size() == 1);
        QCOMPARE((QStringList{LabelText(report, u"gradeLabel"_s), GradeBarText(),
                              ReportCardDlg::ScoreText(card.Rows().front()),
                              LabelText(card, u"gpaLabel"_s)}),
                 texts.split(u'|'));
    }

    // The report card's lines and the grade bar over all courses.
    void gpaLines()
    {
        auto shown = [] {
            ReportCardDlg dialog;
            return QStringList{LabelText(dialog, u"gpaLabel"_s),
                               LabelText(dialog, u"majorGpaLabel"_s),
                               LabelText(dialog, u"cumulativeGpaLabel"_s), GradeBarText()};
        };
        Course(u"Ungraded"_s, -1.0, true);
        QCOMPARE(shown(), (QStringList{u"GPA:"_s, u"Maj GPA:"_s, u"Cum. GPA:"_s, u"GPA:"_s}));

        Course(u"Algebra"_s, 0.95, true, 4.0);
        Course(u"Drawing"_s, 0.75, false, 2.0);
        QCOMPARE(shown(), (QStringList{u"GPA: 3.000"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 3.000"_s,
                                       u"GPA: 3.00"_s}));
        CAppStateTable::Instance().SetShowGPAWithHours(true);
        CAppStateTable::Instance().UpdateRecord();
        // An archived D for 3 hours counts cumulatively only: (16 + 4 + 3) / 9.
        Course(u"Old"_s, 0.65, false, 3.0, Records::Semester(u"Fall"_s));
        QCOMPARE(shown(), (QStringList{u"GPA: 3.333"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 2.556"_s,
                                       u"GPA: 3.33"_s}));
    }
    void rowsAndChartFollowCourseOrder()
    {
        Course(u"Zoology"_s, 0.91);
        const quint32 algebra = Records::Course(u"Algebra"_s, WorkingSemesterID, 0.5);
        Records::MinimumPercent(algebra, 0, 85.0);
        Records::MinimumPercent(algebra, 2, 45.0); // grade 1 missing: counts as 0
        Course(u"Chemistry"_s, -1.0);
        Course(u"Archived"_s, 0.9, false, 3.0, Records::Semester(u"Fall"_s));
        // The predicted grade stands in for the stored one in prediction mode.
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(algebra, 0.48);

        ReportCardDlg dialog;
        QStringList rows;
        for (const auto& row : dialog.Rows())
            rows << row.name + u'|' + ReportCardDlg::ScoreText(row);
        QCOMPARE(rows, (QStringList{u"Zoology|91% A"_s, u"Algebra|48% B"_s, u"Chemistry|"_s}));

        const auto& chart = dialog.Chart()->Courses();
        QCOMPARE(static_cast<int>(chart.size()), 3);
        QCOMPARE(chart[1].fraction, 0.48);
        QStringList bands;
        for (const auto& band : chart[1].bands)
            bands << u"%1@%2"_s.arg(band.gradeName).arg(band.minimum);
        QCOMPARE(bands, (QStringList{u"A@85"_s, u"B@0"_s, u"C@45"_s}));
        QCOMPARE(chart[2].fraction, -1.0);
        // A screen reader hears each course as the chart draws it.
        const QStringList spoken = dialog.Chart()->accessibleDescription().split(u'\n');
        QVERIFY2(spoken.size() == 3 && spoken[1].startsWith(u"Algebra"_s) &&
                     spoken[1].contains(u"48%"_s) && spoken[1].endsWith(u" B"_s),
                 qPrintable(spoken.join(u'\n')));
        // One scale for every row, from the ten below the lowest minimum above 0
        // (45); a band starting at 0 would squeeze the others.
        QCOMPARE(dialog.Chart()->ScaleLow(), 40.0);
        QCOMPARE(dialog.Chart()->ScaleHigh(), 100.0);
    }
    void chartStaysBounded_data()
    {
        QTest::addColumn<double>("fraction");
        QTest::newRow("950000 %") << 9500.0;    // 95 of 0.0001 points
        QTest::newRow("beyond 1e15 %") << 1e14; // a step of 20 no longer moves
        QTest::newRow("largest double") << std::numeric_limits<double>::max();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    }
    void chartStaysBounded()
    {
        QFETCH(double, fraction);
        GradeChart chart;
        chart.SetCourses(
            {{u"Physics"_s, fraction, {{u"A"_s, 90.0}}}, {u"Art"_s, 0.75, {{u"A"_s, 60.0}}}});
        QVERIFY(chart.ScaleHigh() <= GradeChart::MaxScale);
        QVERIFY(chart.ScaleLow() < chart.ScaleHigh());
        const std::vector<double> ticks = chart.Ticks();
        QVERIFY(ticks.size() >= 2 && ticks.size() <= size_t(GradeChart::MaxTicks) + 1);
        QVERIFY(ticks.front() >= chart.ScaleLow() && ticks.back() <= chart.ScaleHigh());
        chart.resize(chart.sizeHint());
        QVERIFY(!chart.grab().isNull()); // drawing ends
    }
    void plannerAndReportAnswerForTheCourse()
    {
        PlannedCourse(u"Chemistry"_s);
        const quint32 course = PlannedCourse(u"Physics"_s);
        GradePlannerDlg dialog(course);
        QCOMPARE(dialog.CourseCount(), 2);
        QCOMPARE(dialog.SelectedCourse(), 1);
        QCOMPARE(int(dialog.Needs().size()), 4);
        // (40 + 50 p) / 100 reaches 80 % at p = 80 %.
        dialog.SelectGrade(1);
        QVERIFY(dialog.NeedText().startsWith(u"For "_s + dialog.Needs()[1].gradeName));
        QVERIFY(dialog.NeedText().contains(u"80%"_s));
        QCOMPARE(dialog.findChild<QTreeWidget*>(u"needList"_s)->topLevelItem(1)->text(2), u"80%"_s);
        QCOMPARE(dialog.AssumedTexts(), QStringList({u"Homework: Final (out of 50)"_s}));
        QVERIFY(dialog.BestCaseText().contains(u"90%"_s) &&
                dialog.WorstCaseText().contains(u"40%"_s));
        QVERIFY(dialog.WarningTexts().isEmpty());

        dialog.SetTargetGpa(QString());
        QCOMPARE(dialog.GpaAnswerText(), u"Type the semester GPA you aim for."_s);
        dialog.SetTargetGpa(u"99"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Not reachable"_s));
        dialog.SetTargetGpa(u"0"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Already secured"_s));

        // The progress report shows the same band and the calculation.
        ProgressReportDlg report(course);
        QVERIFY(report.BandText().contains(u"40%"_s) && report.BandText().contains(u"90%"_s));
        QVERIFY(report.WarningTexts().isEmpty());
        const auto* tree = report.findChild<QTreeWidget*>(u"calculationTree"_s);
        QVERIFY(tree && tree->topLevelItemCount() == 1);
        QCOMPARE(RowTexts(tree->topLevelItem(0)->child(0)).value(1), u"40 / 50"_s);
        QCOMPARE(RowTexts(tree->topLevelItem(0)->child(1)).value(2), u"not graded yet"_s);
    }
    // The planner from the Tools menu and the progress report, the grade bar's
    // best and worst case, and the GPA bar after the institution's OK.
    void mainFrameReachesAndRefreshes()
    {
        const quint32 course = PlannedCourse(u"Physics"_s);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
        CMainFrame frame;
        auto* action = frame.findChild<QAction*>(u"actionGradePlanner"_s);
        QVERIFY(action);
        frame.UpdateCommandStates();
        QVERIFY(action->isEnabled());

        QStringList opened;
        DialogRunner::SetHook([&](QDialog& dialog) {
            opened << dialog.objectName();
            if (auto* planner = qobject_cast<GradePlannerDlg*>(&dialog))
                opened << planner->Needs().front().gradeName; // on the current course
            if (auto* report = qobject_cast<ProgressReportDlg*>(&dialog)) {
                report->findChild<QPushButton*>(u"plannerButton"_s)->click();
                return report->result();
            }
            return int(QDialog::Rejected);
        });
        action->trigger();
        frame.findChild<QAction*>(u"actionProgressReport"_s)->trigger();
        QCOMPARE(opened, (QStringList{u"GradePlannerDlg"_s, u"A"_s, u"ProgressReportDlg"_s,
                                      u"GradePlannerDlg"_s, u"A"_s}));

        // The grade bar's tooltip gives the best and worst case of the course only.
        QLabel* bar = frame.View()->GradeBar();
        QVERIFY(bar->toolTip().contains(u"40%"_s) && bar->toolTip().contains(u"90%"_s));
        CAppStateTable::Instance().SetCurrentCourseID(AllCoursesID);
        frame.RefreshGradeBar();
        QVERIFY(bar->toolTip().isEmpty());
        QCOMPARE(bar->text(), u"GPA: 3.00"_s); // 40 of 50 so far: a B

        DialogRunner::SetHook([](QDialog& shown) {
            auto* institution = qobject_cast<InstitutionDlg*>(&shown);
            if (!institution)
                return int(QDialog::Rejected);
            // A moves to the end: grade 1, the course's, is now C.
            institution->DeleteGrade(0);
            institution->AddGrade({u"A"_s, 4.0});
            institution->accept();
            return institution->result();
        });
        frame.findChild<QAction*>(u"actionInstitution"_s)->trigger();
        QCOMPARE(bar->text(), u"GPA: 2.00"_s);
    }
};

QTEST_MAIN(TestReports)
#include "tst_reports.moc"
