#include "GradingFixtures.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

namespace {

quint32 Course(const QString& name, double grade, bool inMajor = false, double hours = 3.0,
               quint32 semester = WorkingSemesterID)
{
    return Fixture::GradedCourse(name, grade, hours, inMajor, semester);
}

} // namespace

class TestReportCardDlg : public QObject
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

    void gpaLines_data()
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
    void gpaLines()
    {
        QFETCH(QString, setup);
        QFETCH(QStringList, lines);

        if (setup == QLatin1String("ungraded") || setup == QLatin1String("past")) {
            Course(QStringLiteral("Ungraded"), -1.0, true);
            if (setup == QLatin1String("past")) {
                CGPAInfoTable gpa;
                gpa.Open();
                gpa.MoveFirst(1);
                gpa.SetTotalPastHours(30.0);
                gpa.SetTotalPastPoints(99.0);
                gpa.UpdateRecord();
            }
        } else if (setup == QLatin1String("archived")) {
            Course(QStringLiteral("Algebra"), 0.95, true);
            Course(QStringLiteral("Old"), 0.65, false, 3.0,
                   Records::Semester(QStringLiteral("Fall")));
        } else {
            Course(QStringLiteral("Algebra"), 0.95, true, 4.0);
            Course(QStringLiteral("Drawing"), 0.75, false, 2.0);
            CAppStateTable::Instance().SetShowGPAWithHours(setup == QLatin1String("weighted"));
            CAppStateTable::Instance().UpdateRecord();
        }

        ReportCardDlg dialog;
        QStringList shown;
        for (const char* name : {"gpaLabel", "majorGpaLabel", "cumulativeGpaLabel"})
            shown << dialog.findChild<QLabel*>(QLatin1String(name))->text();
        QCOMPARE(shown, lines);
    }
    void courseRow_data()
    {
        QTest::addColumn<double>("grade");
        QTest::addColumn<QString>("shown");

        QTest::newRow("no grade: the name alone") << -1.0 << QString();
        QTest::newRow("rounded up to 87.51") << 0.87501 << QStringLiteral("87.51% B");
        QTest::newRow("product just under a whole") << 0.57 << QStringLiteral("57% F");
        QTest::newRow("under every minimum") << 0.3 << QStringLiteral("30% F");
        QTest::newRow("zero") << 0.0 << QStringLiteral("0% F");
    }
    void courseRow()
    {
        QFETCH(double, grade);
        QFETCH(QString, shown);

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
    void rowsAndChartFollowCourseOrder()
    {
        Course(QStringLiteral("Zoology"), 0.91);
        const quint32 algebra = Records::Course(QStringLiteral("Algebra"), WorkingSemesterID, 0.5);
        Records::MinimumPercent(algebra, 0, 85.0);
        Records::MinimumPercent(algebra, 2, 45.0); // grade 1 missing: counts as 0
        Course(QStringLiteral("Chemistry"), -1.0);
        Course(QStringLiteral("Archived"), 0.9, false, 3.0,
               Records::Semester(QStringLiteral("Fall")));
        // The predicted grade stands in for the stored one in prediction mode.
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(algebra, 0.48);

        ReportCardDlg dialog;
        QStringList rows;
        for (const auto& row : dialog.Rows())
            rows << QStringLiteral("%1|%2").arg(row.name, ReportCardDlg::ScoreText(row));
        QCOMPARE(rows,
                 (QStringList{QStringLiteral("Zoology|91% A"), QStringLiteral("Algebra|48% B"),
                              QStringLiteral("Chemistry|")}));

        const auto& chart = dialog.Chart()->Courses();
        QCOMPARE(static_cast<int>(chart.size()), 3);
        QCOMPARE(chart[1].name, QStringLiteral("Algebra"));
        QCOMPARE(chart[1].fraction, 0.48);
        QStringList bands;
        for (const auto& band : chart[1].bands)
            bands << QStringLiteral("%1@%2").arg(band.gradeName).arg(band.minimum);
        QCOMPARE(bands, (QStringList{QStringLiteral("A@85"), QStringLiteral("B@0"),
                                     QStringLiteral("C@45")}));
        QCOMPARE(chart[2].fraction, -1.0);
        // One scale for every row, from the ten below the lowest minimum above 0
        // (45); a band starting at 0 would squeeze the others.
        QCOMPARE(dialog.Chart()->ScaleLow(), 40.0);
        QCOMPARE(dialog.Chart()->ScaleHigh(), 100.0);
    }
    void institutionRefreshesTheGpaBar()
    {
        Course(QStringLiteral("Biology"), 0.95);

        CMainFrame frame;
        QLabel* bar = frame.View()->GradeBar();
        QCOMPARE(bar->text(), QStringLiteral("GPA: 4.00"));

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
};

QTEST_MAIN(TestReportCardDlg)
#include "tst_reportcarddlg.moc"
