#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/GradePointDlg.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "grading/dialogs/GradePredictionDlgScoreEditor.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "store/BrindleData.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

// A course of the default scale A to D at 90 / 80 / 70 / 60.
quint32 Course(const QString& name, double grade, bool inMajor = false, double hours = 3.0,
               quint32 semester = WorkingSemesterID)
{
    const quint32 id = Records::Course(name, semester, grade);
    const double minimums[] = {90.0, 80.0, 70.0, 60.0};
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(id, g, minimums[g]);
    CCourseTable course;
    course.Open();
    course.MoveToRecord(id);
    course.SetInMajor(inMajor ? 1 : 0);
    course.SetCourseHours(hours);
    course.UpdateRecord();
    return id;
}

void SetPast(double hours, double points)
{
    CGPAInfoTable gpa;
    gpa.Open();
    gpa.MoveFirst(1);
    gpa.SetTotalPastHours(hours);
    gpa.SetTotalPastPoints(points);
    gpa.UpdateRecord();
}

void SetWeighted(bool weighted)
{
    CAppStateTable::Instance().SetShowGPAWithHours(weighted ? 1 : 0);
    CAppStateTable::Instance().UpdateRecord();
}

struct HookReset
{
    ~HookReset() { DialogRunner::SetHook({}); }
};

} // namespace

class TestReportCardDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void cleanup() { CPredictionStore::Instance().SetActive(false); }

    void gpaLines_data();
    void gpaLines();
    void courseRow_data();
    void courseRow();
    void rowsAndChartFollowCourseOrder();
    void commandsOpenTheirDialogs_data();
    void commandsOpenTheirDialogs();
    void institutionRefreshesTheGpaBar();
    void helpButtonsOpenTheirTopics_data();
    void helpButtonsOpenTheirTopics();
};

void TestReportCardDlg::gpaLines_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("nothing graded")
        << QStringLiteral("ungraded")
        << QStringList{QStringLiteral("GPA:"), QStringLiteral("Maj GPA:"),
                       QStringLiteral("Cum. GPA:")};
    QTest::newRow("past hours only")
        << QStringLiteral("past")
        << QStringList{QStringLiteral("GPA:"), QStringLiteral("Maj GPA:"),
                       QStringLiteral("Cum. GPA: 3.300")};
    QTest::newRow("graded") << QStringLiteral("graded")
                            << QStringList{QStringLiteral("GPA: 3.000"),
                                           QStringLiteral("Maj GPA: 4.000"),
                                           QStringLiteral("Cum. GPA: 3.000")};
    QTest::newRow("weighted by hours")
        << QStringLiteral("weighted")
        << QStringList{QStringLiteral("GPA: 3.333"), QStringLiteral("Maj GPA: 4.000"),
                       QStringLiteral("Cum. GPA: 3.333")};
    QTest::newRow("archived course, cumulative only")
        << QStringLiteral("archived")
        << QStringList{QStringLiteral("GPA: 4.000"), QStringLiteral("Maj GPA: 4.000"),
                       QStringLiteral("Cum. GPA: 2.500")};
}

void TestReportCardDlg::gpaLines()
{
    QFETCH(QString, setup);
    QFETCH(QStringList, lines);

    TestDatabase db;
    QVERIFY(db.IsReady());
    if (setup == QLatin1String("ungraded") || setup == QLatin1String("past")) {
        Course(QStringLiteral("Ungraded"), -1.0, true);
        if (setup == QLatin1String("past"))
            SetPast(30.0, 99.0);
    } else if (setup == QLatin1String("archived")) {
        Course(QStringLiteral("Algebra"), 0.95, true);
        Course(QStringLiteral("Old"), 0.65, false, 3.0, Records::Semester(QStringLiteral("Fall")));
    } else {
        Course(QStringLiteral("Algebra"), 0.95, true, 4.0);
        Course(QStringLiteral("Drawing"), 0.75, false, 2.0);
        SetWeighted(setup == QLatin1String("weighted"));
    }

    ReportCardDlg dialog;
    QCOMPARE((QStringList{dialog.GpaText(), dialog.MajorGpaText(), dialog.CumulativeGpaText()}),
             lines);
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("gpaLabel"))->text(), lines[0]);
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("majorGpaLabel"))->text(), lines[1]);
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("cumulativeGpaLabel"))->text(), lines[2]);
    for (const char* name : {"gpaLabel", "majorGpaLabel", "cumulativeGpaLabel"})
        QCOMPARE(dialog.findChild<QLabel*>(QLatin1String(name))->font().family(),
                 QStringLiteral("Arial"));
}

void TestReportCardDlg::courseRow_data()
{
    QTest::addColumn<double>("grade");
    QTest::addColumn<QString>("shown");

    QTest::newRow("no grade: the name alone") << -1.0 << QString();
    QTest::newRow("rounded up to 87.51") << 0.87501 << QStringLiteral("87.51% B");
    QTest::newRow("product just under a whole") << 0.57 << QStringLiteral("57% F");
    QTest::newRow("above 100") << 1.05 << QStringLiteral("105% A");
    QTest::newRow("exactly a minimum") << 0.8 << QStringLiteral("80% B");
    QTest::newRow("under every minimum") << 0.3 << QStringLiteral("30% F");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0% F");
}

void TestReportCardDlg::courseRow()
{
    QFETCH(double, grade);
    QFETCH(QString, shown);

    TestDatabase db;
    QVERIFY(db.IsReady());
    // A fifth grade for the courses under every minimum.
    {
        CGradeScaleTable scale;
        scale.Open();
        scale.NewRecord(0);
        scale.SetGrade(4);
        scale.SetGradeName(QStringLiteral("F"));
        QVERIFY(scale.UpdateRecord());
    }
    Course(QStringLiteral("Biology"), grade);

    ReportCardDlg dialog;
    QCOMPARE(static_cast<int>(dialog.Rows().size()), 1);
    QCOMPARE(ReportCardDlg::ScoreText(dialog.Rows().front()), shown);
    auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("courseList"));
    QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Biology"));
    QCOMPARE(list->topLevelItem(0)->text(1), shown);
}

void TestReportCardDlg::rowsAndChartFollowCourseOrder()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Course(QStringLiteral("Zoology"), 0.91);
    const quint32 algebra = Records::Course(QStringLiteral("Algebra"), WorkingSemesterID, 0.5);
    Records::MinimumPercent(algebra, 0, 85.0);
    Records::MinimumPercent(algebra, 2, 45.0); // grade 1 missing: counts as 0
    Course(QStringLiteral("Chemistry"), -1.0);
    Course(QStringLiteral("Archived"), 0.9, false, 3.0, Records::Semester(QStringLiteral("Fall")));
    // The predicted grade stands in for the stored one in prediction mode.
    CPredictionStore::Instance().SetActive(true);
    CPredictionStore::Instance().SetPredictedGrade(algebra, 0.48);

    ReportCardDlg dialog;
    QStringList rows;
    for (const auto& row : dialog.Rows())
        rows << QStringLiteral("%1|%2").arg(row.name, ReportCardDlg::ScoreText(row));
    QCOMPARE(rows, (QStringList{QStringLiteral("Zoology|91% A"), QStringLiteral("Algebra|48% B"),
                                QStringLiteral("Chemistry|")}));

    const auto& chart = dialog.Chart()->Courses();
    QCOMPARE(static_cast<int>(chart.size()), 3);
    QCOMPARE(chart[1].name, QStringLiteral("Algebra"));
    QCOMPARE(chart[1].fraction, 0.48);
    QStringList bands;
    for (const auto& band : chart[1].bands)
        bands << QStringLiteral("%1@%2").arg(band.gradeName).arg(band.minimum);
    QCOMPARE(bands,
             (QStringList{QStringLiteral("A@85"), QStringLiteral("B@0"), QStringLiteral("C@45")}));
    QCOMPARE(chart[2].fraction, -1.0);
    // One scale for every row, from the ten below the lowest minimum above 0
    // (45); a band starting at 0 would squeeze the others.
    QCOMPARE(dialog.Chart()->ScaleLow(), 40.0);
    QCOMPARE(dialog.Chart()->ScaleHigh(), 100.0);
}

void TestReportCardDlg::commandsOpenTheirDialogs_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("courseSelected");
    QTest::addColumn<QString>("dialog");

    QTest::newRow("Options...") << QStringLiteral("actionPredictionOptions") << false
                                << QStringLiteral("GradePredictionDlg");
    QTest::newRow("Institution...")
        << QStringLiteral("actionInstitution") << false << QStringLiteral("InstitutionDlg");
    QTest::newRow("Report Card...")
        << QStringLiteral("actionReportCard") << false << QStringLiteral("ReportCardDlg");
    QTest::newRow("Progress Report...")
        << QStringLiteral("actionProgressReport") << true << QStringLiteral("ProgressReportDlg");
}

void TestReportCardDlg::commandsOpenTheirDialogs()
{
    QFETCH(QString, action);
    QFETCH(bool, courseSelected);
    QFETCH(QString, dialog);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Course(QStringLiteral("Biology"), 0.85);
    if (courseSelected) {
        CAppStateTable::Instance().SetCurrentCourseID(course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
    }

    CMainFrame frame;
    HookReset reset;
    QStringList opened;
    QString reportedCourse;
    DialogRunner::SetHook([&](QDialog& shown) {
        opened << shown.objectName();
        if (auto* report = qobject_cast<ProgressReportDlg*>(&shown))
            reportedCourse = report->CourseName();
        return int(QDialog::Rejected);
    });
    auto* command = frame.findChild<QAction*>(action);
    QVERIFY(command);
    frame.UpdateCommandStates();
    QVERIFY(command->isEnabled());
    command->trigger();
    QCOMPARE(opened, QStringList{dialog});
    if (courseSelected)
        QCOMPARE(reportedCourse, QStringLiteral("Biology"));
}

void TestReportCardDlg::institutionRefreshesTheGpaBar()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Course(QStringLiteral("Biology"), 0.95);

    CMainFrame frame;
    QLabel* bar = frame.View()->GradeBar();
    QCOMPARE(bar->text(), QStringLiteral("GPA: 4.00"));

    HookReset reset;
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
    frame.findChild<QAction*>(QStringLiteral("actionInstitution"))->trigger();
    QCOMPARE(bar->text(), QStringLiteral("GPA: 3.50"));
}

void TestReportCardDlg::helpButtonsOpenTheirTopics_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("topic");

    // The small editors open the section of the dialog they belong to.
    QTest::newRow("report card") << QStringLiteral("ReportCardDlg")
                                 << QStringLiteral("ReportCardDlg");
    QTest::newRow("progress report")
        << QStringLiteral("ProgressReportDlg") << QStringLiteral("ProgressReportDlg");
    QTest::newRow("institution") << QStringLiteral("InstitutionDlg")
                                 << QStringLiteral("InstitutionDlg");
    QTest::newRow("grade point") << QStringLiteral("GradePointDlg")
                                 << QStringLiteral("InstitutionDlg");
    QTest::newRow("prediction") << QStringLiteral("GradePredictionDlg")
                                << QStringLiteral("GradePredictionDlg");
    QTest::newRow("score to give")
        << QStringLiteral("GradePredictionDlgScoreEditor") << QStringLiteral("GradePredictionDlg");
}

void TestReportCardDlg::helpButtonsOpenTheirTopics()
{
    QFETCH(QString, dialog);
    QFETCH(QString, topic);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Course(QStringLiteral("Biology"), 0.85);
    std::unique_ptr<QDialog> shown;
    if (dialog == QLatin1String("ReportCardDlg"))
        shown = std::make_unique<ReportCardDlg>();
    else if (dialog == QLatin1String("ProgressReportDlg"))
        shown = std::make_unique<ProgressReportDlg>(course);
    else if (dialog == QLatin1String("InstitutionDlg"))
        shown = std::make_unique<InstitutionDlg>();
    else if (dialog == QLatin1String("GradePointDlg"))
        shown = std::make_unique<GradePointDlg>(GradePointDlg::NewGradePoint);
    else if (dialog == QLatin1String("GradePredictionDlg"))
        shown = std::make_unique<GradePredictionDlg>();
    else
        shown = std::make_unique<GradePredictionDlgScoreEditor>();
    QCOMPARE(shown->objectName(), dialog);

    auto* buttons = shown->findChild<QDialogButtonBox*>();
    QVERIFY(buttons && buttons->button(QDialogButtonBox::Help));
    buttons->button(QDialogButtonBox::Help)->click();
    auto* viewer = shown->findChild<CHelpViewer*>();
    QVERIFY(viewer);
    QCOMPARE(viewer->CurrentTopic(), topic);
    viewer->close();
}

QTEST_MAIN(TestReportCardDlg)
#include "tst_reportcarddlg.moc"
