// The report dialogs as the user reads them: the progress report's rows and
// lines, the report card's GPA lines, rows and chart, and the grade planner
// dialog with where it is reached from (the Tools menu, the progress report),
// the grading policy dialog's warnings and the grade bar's best and worst
// case. (The planner's answers themselves: tst_gradeplanner.)
#include "GradingFixtures.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/GradePlannerDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// One coursework of the test type: score, possible, completed percent.
struct Item
{
    double score;
    double possible;
    quint16 completed;
};

quint32 CourseWithMinimums(const QString& name, double currentGrade = -1.0)
{
    const quint32 course = Fixture::GradedCourse(name, currentGrade);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    return course;
}

quint32 Course(const QString& name, double grade, bool inMajor = false, double hours = 3.0,
               quint32 semester = WorkingSemesterID)
{
    return Fixture::GradedCourse(name, grade, hours, inMajor, semester);
}

// Homework 40/50 done, the final (50 points) still to come; A to D at
// 90 / 80 / 70 / 60, weighting None.
quint32 PlannedCourse(const QString& name)
{
    const quint32 course = Records::Course(name);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    Fixture::SetMinimums(course, Fixture::abcd);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    Records::Coursework(course, type, u"Homework 1"_s, 40.0, 50.0);
    Records::Coursework(course, type, u"Final"_s, -1.0, 50.0);
    RecomputeCourseGrade(course);
    return course;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<Item>)

class TestReports : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_db;

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup()
    {
        CPredictionStore::Instance().SetActive(false);
        DialogRunner::SetHook({});
        m_db.reset();
    }

    void emptyCourse()
    {
        const quint32 course = CourseWithMinimums(u"Geology"_s);
        Records::CwType(course, u"Homework"_s);
        Records::CwType(course, u"Exams"_s);

        ProgressReportDlg dialog(course);
        QCOMPARE(dialog.CourseName(), u"Geology"_s);
        auto* rows = dialog.findChild<QTreeWidget*>(u"typeRows"_s);
        QCOMPARE(rows->topLevelItemCount(), 2);
        QCOMPARE(rows->topLevelItem(1)->text(0), u"Exams"_s);
        QCOMPARE(rows->topLevelItem(1)->text(1), u"0 of 0 completed"_s);
        QCOMPARE(rows->topLevelItem(1)->text(2), u"-"_s);
        QCOMPARE(dialog.findChild<QLabel*>(u"completionLabel"_s)->text(), u"No Courseworks"_s);
        QCOMPARE(dialog.findChild<QLabel*>(u"gradeLabel"_s)->text(), u"No Score"_s);
    }
    void typeRow_data()
    {
        QTest::addColumn<quint16>("drops");
        QTest::addColumn<std::vector<Item>>("items");
        QTest::addColumn<QString>("counts");
        QTest::addColumn<QString>("score");

        QTest::newRow("ungraded only, still counted")
            << quint16(0) << std::vector<Item>{{-1.0, 10.0, 100}, {-1.0, 20.0, 0}}
            << u"1 of 2 completed"_s << u"-"_s;
        QTest::newRow("graded and ungraded")
            << quint16(0) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}, {-1.0, 10.0, 0}}
            << u"2 of 3 completed"_s << u"65% D"_s;
        QTest::newRow("lowest dropped")
            << quint16(1) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}}
            << u"2 of 2 completed"_s << u"80% B"_s;
        QTest::newRow("rounded up, not to nearest")
            << quint16(0) << std::vector<Item>{{87.654, 100.0, 0}} << u"0 of 1 completed"_s
            << u"87.66% B"_s;
        QTest::newRow("done past 100 counts as completed")
            << quint16(0) << std::vector<Item>{{10.0, 10.0, 120}} << u"1 of 1 completed"_s
            << u"100% A"_s;
    }
    void typeRow()
    {
        QFETCH(quint16, drops);
        QFETCH(std::vector<Item>, items);
        QFETCH(QString, counts);
        QFETCH(QString, score);

        const quint32 course = CourseWithMinimums(u"Geology"_s);
        const quint32 type = Records::CwType(course, u"Labs"_s, 0.0, drops);
        int n = 0;
        for (const Item& item : items)
            Records::Coursework(course, type, u"Lab %1"_s.arg(++n), item.score, item.possible, 0.0,
                                item.completed);

        ProgressReportDlg dialog(course);
        QCOMPARE(static_cast<int>(dialog.Rows().size()), 1);
        QCOMPARE(dialog.Rows().front().name, u"Labs"_s);
        QCOMPARE(ProgressReportDlg::CountText(dialog.Rows().front()), counts);
        QCOMPARE(ProgressReportDlg::ScoreText(dialog.Rows().front()), score);
    }
    void typesInTypeOrderWithTotals()
    {
        const quint32 course = CourseWithMinimums(u"Geology"_s);
        const quint32 labs = Records::CwType(course, u"Labs"_s, 0.0, 0, 2);
        const quint32 exams = Records::CwType(course, u"Exams"_s, 0.0, 0, 0);
        const quint32 quizzes = Records::CwType(course, u"Quizzes"_s, 0.0, 0, 1);
        Records::Coursework(course, labs, u"Lab 1"_s, 9.0, 10.0, 0.0, 100);
        Records::Coursework(course, labs, u"Lab 2"_s, -1.0, 10.0, 0.0, 40);
        Records::Coursework(course, exams, u"Midterm"_s, 71.0, 100.0, 0.0, 100);
        Records::Coursework(course, quizzes, u"Quiz 1"_s, -1.0, 5.0, 0.0, 0);
        // Another course's coursework stays out of this report.
        const quint32 other = CourseWithMinimums(u"History"_s);
        Records::Coursework(other, Records::CwType(other, u"Labs"_s), u"Lab"_s, 1.0, 1.0, 0.0, 100);

        ProgressReportDlg dialog(course);
        QStringList names;
        QStringList scores;
        for (const auto& row : dialog.Rows()) {
            names << row.name;
            scores << ProgressReportDlg::ScoreText(row);
        }
        QCOMPARE(names, (QStringList{u"Exams"_s, u"Quizzes"_s, u"Labs"_s}));
        QCOMPARE(scores, (QStringList{u"71% C"_s, u"-"_s, u"90% A"_s}));
        QCOMPARE(dialog.CompletionText(), u"2 of 4 courseworks completed"_s);
    }
    void gradeLine_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<QString>("line");

        QTest::newRow("no score") << -1.0 << u"No Score"_s;
        QTest::newRow("rounded up") << 0.87654 << u"Grade: 87.66% B"_s;
        QTest::newRow("above 100 keeps hundredths") << 1.125 << u"Grade: 112.5% A"_s;
        QTest::newRow("zero is a score") << 0.0 << u"Grade: 0%"_s;
    }
    void gradeLine()
    {
        QFETCH(double, stored);
        QFETCH(QString, line);

        // The line reads the stored grade; it does not recompute it.
        const quint32 course = CourseWithMinimums(u"Geology"_s, stored);
        Records::CwType(course, u"Homework"_s);

        ProgressReportDlg dialog(course);
        QCOMPARE(dialog.GradeText(), line);
        QCOMPARE(dialog.findChild<QLabel*>(u"gradeLabel"_s)->text(), line);
    }
    void gradeLineShowsPrediction()
    {
        const quint32 course = CourseWithMinimums(u"Geology"_s, 0.72);
        const quint32 other = CourseWithMinimums(u"History"_s, 0.72);
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(course, 0.95);

        QCOMPARE(ProgressReportDlg(course).GradeText(), u"Grade: 95% A"_s);
        QCOMPARE(ProgressReportDlg(other).GradeText(), u"Grade: 72% C"_s);
        CPredictionStore::Instance().SetActive(false);
        QCOMPARE(ProgressReportDlg(course).GradeText(), u"Grade: 72% C"_s);
    }

    void gpaLines_data()
    {
        QTest::addColumn<QString>("setup");
        QTest::addColumn<QStringList>("lines");

        QTest::newRow("nothing graded")
            << u"ungraded"_s << QStringList{u"GPA:"_s, u"Maj GPA:"_s, u"Cum. GPA:"_s};
        QTest::newRow("past hours only")
            << u"past"_s << QStringList{u"GPA:"_s, u"Maj GPA:"_s, u"Cum. GPA: 3.300"_s};
        QTest::newRow("graded") << u"graded"_s
                                << QStringList{u"GPA: 3.000"_s, u"Maj GPA: 4.000"_s,
                                               u"Cum. GPA: 3.000"_s};
        QTest::newRow("weighted by hours")
            << u"weighted"_s
            << QStringList{u"GPA: 3.333"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 3.333"_s};
        QTest::newRow("archived course, cumulative only")
            << u"archived"_s
            << QStringList{u"GPA: 4.000"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 2.500"_s};
    }
    void gpaLines()
    {
        QFETCH(QString, setup);
        QFETCH(QStringList, lines);

        if (setup == QLatin1String("ungraded") || setup == QLatin1String("past")) {
            Course(u"Ungraded"_s, -1.0, true);
            if (setup == QLatin1String("past")) {
                CGPAInfoTable gpa;
                gpa.Open();
                gpa.MoveFirst(1);
                gpa.SetTotalPastHours(30.0);
                gpa.SetTotalPastPoints(99.0);
                gpa.UpdateRecord();
            }
        } else if (setup == QLatin1String("archived")) {
            Course(u"Algebra"_s, 0.95, true);
            Course(u"Old"_s, 0.65, false, 3.0, Records::Semester(u"Fall"_s));
        } else {
            Course(u"Algebra"_s, 0.95, true, 4.0);
            Course(u"Drawing"_s, 0.75, false, 2.0);
            CAppStateTable::Instance().SetShowGPAWithHours(setup == QLatin1String("weighted"));
            CAppStateTable::Instance().UpdateRecord();
        }

        ReportCardDlg dialog;
        QStringList shown;
        for (const char* name : {"gpaLabel", "majorGpaLabel", "cumulativeGpaLabel"})
            shown << dialog.findChild<QLabel*>(QLatin1String(name))->text();
        QCOMPARE(shown, lines);
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
            rows << u"%1|%2"_s.arg(row.name, ReportCardDlg::ScoreText(row));
        QCOMPARE(rows, (QStringList{u"Zoology|91% A"_s, u"Algebra|48% B"_s, u"Chemistry|"_s}));

        const auto& chart = dialog.Chart()->Courses();
        QCOMPARE(static_cast<int>(chart.size()), 3);
        QCOMPARE(chart[1].name, u"Algebra"_s);
        QCOMPARE(chart[1].fraction, 0.48);
        QStringList bands;
        for (const auto& band : chart[1].bands)
            bands << u"%1@%2"_s.arg(band.gradeName).arg(band.minimum);
        QCOMPARE(bands, (QStringList{u"A@85"_s, u"B@0"_s, u"C@45"_s}));
        QCOMPARE(chart[2].fraction, -1.0);
        // One scale for every row, from the ten below the lowest minimum above 0
        // (45); a band starting at 0 would squeeze the others.
        QCOMPARE(dialog.Chart()->ScaleLow(), 40.0);
        QCOMPARE(dialog.Chart()->ScaleHigh(), 100.0);
    }
    void institutionRefreshesTheGpaBar()
    {
        Course(u"Biology"_s, 0.95);

        CMainFrame frame;
        QLabel* bar = frame.View()->GradeBar();
        QCOMPARE(bar->text(), u"GPA: 4.00"_s);

        DialogRunner::SetHook([](QDialog& shown) {
            auto* institution = qobject_cast<InstitutionDlg*>(&shown);
            if (!institution)
                return int(QDialog::Rejected);
            // Same four grades, A now worth 3.5 points.
            institution->DeleteGrade(0);
            institution->ChooseScale(institution->ScaleNames().size() - 1);
            const struct
            {
                const char* name;
                double points;
            } grades[] = {{"A", 3.5}, {"B", 3.0}, {"C", 2.0}, {"D", 1.0}};
            for (const auto& grade : grades)
                institution->AddGrade({QString::fromLatin1(grade.name), grade.points});
            institution->accept();
            return institution->result();
        });
        frame.findChild<QAction*>(u"actionInstitution"_s)->trigger();
        QCOMPARE(bar->text(), u"GPA: 3.50"_s);
    }

    void answersForTheCourse()
    {
        const quint32 course = PlannedCourse(u"Physics"_s);
        GradePlannerDlg dialog(course);
        QCOMPARE(int(dialog.Needs().size()), 4);
        // (40 + 50 p) / 100 reaches 80 % at p = 80 %.
        dialog.SelectGrade(1);
        const QString grade = dialog.Needs()[1].gradeName;
        QVERIFY(dialog.NeedText().contains(u"80%"_s));
        QVERIFY(dialog.NeedText().startsWith(u"For "_s + grade));
        auto* list = dialog.findChild<QTreeWidget*>(u"needList"_s);
        QCOMPARE(list->topLevelItem(1)->text(2), u"80%"_s);
        QCOMPARE(dialog.AssumedTexts(), QStringList({u"Homework: Final (out of 50)"_s}));
        QVERIFY(dialog.BestCaseText().contains(u"90%"_s));
        QVERIFY(dialog.WorstCaseText().contains(u"40%"_s));
        QVERIFY(dialog.WarningTexts().isEmpty());
    }
    void switchesCourseAndAnswersGpa()
    {
        PlannedCourse(u"Physics"_s);
        const quint32 second = PlannedCourse(u"Chemistry"_s);
        GradePlannerDlg dialog(second);
        QCOMPARE(dialog.CourseCount(), 2);
        QCOMPARE(dialog.SelectedCourse(), 1);
        dialog.SelectCourse(0);
        QCOMPARE(dialog.SelectedCourse(), 0);

        dialog.SetTargetGpa(QString());
        QCOMPARE(dialog.GpaAnswerText(), u"Type the semester GPA you aim for."_s);
        dialog.SetTargetGpa(u"99"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Not reachable"_s));
        dialog.SetTargetGpa(u"0"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Already secured"_s));
    }
    void reachedFromToolsMenuAndReport()
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
                opened << planner->Needs().front().gradeName;
            if (auto* report = qobject_cast<ProgressReportDlg*>(&dialog)) {
                report->findChild<QPushButton*>(u"plannerButton"_s)->click();
                return report->result();
            }
            return int(QDialog::Rejected);
        });
        action->trigger();
        frame.findChild<QAction*>(u"actionProgressReport"_s)->trigger();
        QCOMPARE(opened.size(), 5);
        QCOMPARE(opened.at(0), u"GradePlannerDlg"_s);
        QCOMPARE(opened.at(2), u"ProgressReportDlg"_s);
        QCOMPARE(opened.at(3), u"GradePlannerDlg"_s);

        // The grade bar's tooltip gives the best and worst case of the course only.
        auto* bar = frame.findChild<QLabel*>(u"gradeBar"_s);
        QVERIFY(bar->toolTip().contains(u"40%"_s) && bar->toolTip().contains(u"90%"_s));
        CAppStateTable::Instance().SetCurrentCourseID(AllCoursesID);
        frame.RefreshGradeBar();
        QVERIFY(bar->toolTip().isEmpty());
    }
    void gradingPolicyWarnings()
    {
        const quint32 course = PlannedCourse(u"Physics"_s);
        Records::CwType(course, u"Labs"_s, 30.0);
        GradingDlg dialog(course);
        QVERIFY(dialog.WarningTexts().join(u' ').contains(u"\"Labs\" has no coursework."_s));
        const qsizetype before = dialog.WarningTexts().size();
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        // Homework has weight 0 and is graded: weight 0, and weights add up to 0.
        QCOMPARE(dialog.WarningTexts().size(), before + 2);
        QVERIFY(!dialog.findChild<QLabel*>(u"warningLabel"_s)->isHidden());
    }
    void reportShowsBandWarningsAndCalculation()
    {
        const quint32 course = PlannedCourse(u"Physics"_s);
        ProgressReportDlg report(course);
        QVERIFY(report.BandText().contains(u"40%"_s));
        QVERIFY(report.BandText().contains(u"90%"_s));
        QVERIFY(report.WarningTexts().isEmpty());
        auto* tree = report.findChild<QTreeWidget*>(u"calculationTree"_s);
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->childCount(), 2);
        QCOMPARE(tree->topLevelItem(0)->child(0)->text(1), u"40 / 50"_s);
        QCOMPARE(tree->topLevelItem(0)->child(1)->text(2), u"not graded yet"_s);
    }
};

QTEST_MAIN(TestReports)
#include "tst_reports.moc"
