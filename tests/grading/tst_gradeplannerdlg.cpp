// The grade planner dialog and where it is reached from: the Tools menu, the
// progress report; the warnings of the grading policy dialog and the grade
// bar's best and worst case. (Its answers themselves: tst_gradeplanner.)
#include "GradingFixtures.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradePlannerDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

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

class TestGradePlannerDlg : public QObject
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
        DialogRunner::SetHook({});
        CPredictionStore::Instance().SetActive(false);
        m_db.reset();
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

QTEST_MAIN(TestGradePlannerDlg)
#include "tst_gradeplannerdlg.moc"
