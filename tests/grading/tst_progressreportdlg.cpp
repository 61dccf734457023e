// The progress report: per-type rows, the completion and grade lines, as
// the user reads them.
#include "GradingFixtures.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "support/TestDatabase.h"

#include <QLabel>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

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

} // namespace

Q_DECLARE_METATYPE(std::vector<Item>)

class TestProgressReportDlg : public QObject
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
        m_db.reset();
    }

    void emptyCourse()
    {
        const quint32 course = CourseWithMinimums(QStringLiteral("Geology"));
        Records::CwType(course, QStringLiteral("Homework"));
        Records::CwType(course, QStringLiteral("Exams"));

        ProgressReportDlg dialog(course);
        QCOMPARE(dialog.CourseName(), QStringLiteral("Geology"));
        auto* rows = dialog.findChild<QTreeWidget*>(QStringLiteral("typeRows"));
        QCOMPARE(rows->topLevelItemCount(), 2);
        QCOMPARE(rows->topLevelItem(1)->text(0), QStringLiteral("Exams"));
        QCOMPARE(rows->topLevelItem(1)->text(1), QStringLiteral("0 of 0 completed"));
        QCOMPARE(rows->topLevelItem(1)->text(2), QStringLiteral("-"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("completionLabel"))->text(),
                 QStringLiteral("No Courseworks"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("gradeLabel"))->text(),
                 QStringLiteral("No Score"));
    }
    void typeRow_data()
    {
        QTest::addColumn<quint16>("drops");
        QTest::addColumn<std::vector<Item>>("items");
        QTest::addColumn<QString>("counts");
        QTest::addColumn<QString>("score");

        QTest::newRow("ungraded only, still counted")
            << quint16(0) << std::vector<Item>{{-1.0, 10.0, 100}, {-1.0, 20.0, 0}}
            << QStringLiteral("1 of 2 completed") << QStringLiteral("-");
        QTest::newRow("graded and ungraded")
            << quint16(0) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}, {-1.0, 10.0, 0}}
            << QStringLiteral("2 of 3 completed") << QStringLiteral("65% D");
        QTest::newRow("lowest dropped")
            << quint16(1) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}}
            << QStringLiteral("2 of 2 completed") << QStringLiteral("80% B");
        QTest::newRow("graded with nothing possible")
            << quint16(0) << std::vector<Item>{{0.0, 0.0, 100}}
            << QStringLiteral("1 of 1 completed") << QStringLiteral("-");
        QTest::newRow("rounded up, not to nearest")
            << quint16(0) << std::vector<Item>{{87.654, 100.0, 0}}
            << QStringLiteral("0 of 1 completed") << QStringLiteral("87.66% B");
        QTest::newRow("under every minimum")
            << quint16(0) << std::vector<Item>{{5.0, 10.0, 50}}
            << QStringLiteral("0 of 1 completed") << QStringLiteral("50%");
        QTest::newRow("done past 100 counts as completed")
            << quint16(0) << std::vector<Item>{{10.0, 10.0, 120}}
            << QStringLiteral("1 of 1 completed") << QStringLiteral("100% A");
    }
    void typeRow()
    {
        QFETCH(quint16, drops);
        QFETCH(std::vector<Item>, items);
        QFETCH(QString, counts);
        QFETCH(QString, score);

        const quint32 course = CourseWithMinimums(QStringLiteral("Geology"));
        const quint32 type = Records::CwType(course, QStringLiteral("Labs"), 0.0, drops);
        int n = 0;
        for (const Item& item : items)
            Records::Coursework(course, type, QStringLiteral("Lab %1").arg(++n), item.score,
                                item.possible, 0.0, item.completed);

        ProgressReportDlg dialog(course);
        QCOMPARE(static_cast<int>(dialog.Rows().size()), 1);
        QCOMPARE(dialog.Rows().front().name, QStringLiteral("Labs"));
        QCOMPARE(ProgressReportDlg::CountText(dialog.Rows().front()), counts);
        QCOMPARE(ProgressReportDlg::ScoreText(dialog.Rows().front()), score);
    }
    void typesInTypeOrderWithTotals()
    {
        const quint32 course = CourseWithMinimums(QStringLiteral("Geology"));
        const quint32 labs = Records::CwType(course, QStringLiteral("Labs"), 0.0, 0, 2);
        const quint32 exams = Records::CwType(course, QStringLiteral("Exams"), 0.0, 0, 0);
        const quint32 quizzes = Records::CwType(course, QStringLiteral("Quizzes"), 0.0, 0, 1);
        Records::Coursework(course, labs, QStringLiteral("Lab 1"), 9.0, 10.0, 0.0, 100);
        Records::Coursework(course, labs, QStringLiteral("Lab 2"), -1.0, 10.0, 0.0, 40);
        Records::Coursework(course, exams, QStringLiteral("Midterm"), 71.0, 100.0, 0.0, 100);
        Records::Coursework(course, quizzes, QStringLiteral("Quiz 1"), -1.0, 5.0, 0.0, 0);
        // Another course's coursework stays out of this report.
        const quint32 other = CourseWithMinimums(QStringLiteral("History"));
        Records::Coursework(other, Records::CwType(other, QStringLiteral("Labs")),
                            QStringLiteral("Lab"), 1.0, 1.0, 0.0, 100);

        ProgressReportDlg dialog(course);
        QStringList names;
        QStringList scores;
        for (const auto& row : dialog.Rows()) {
            names << row.name;
            scores << ProgressReportDlg::ScoreText(row);
        }
        QCOMPARE(names, (QStringList{QStringLiteral("Exams"), QStringLiteral("Quizzes"),
                                     QStringLiteral("Labs")}));
        QCOMPARE(scores, (QStringList{QStringLiteral("71% C"), QStringLiteral("-"),
                                      QStringLiteral("90% A")}));
        QCOMPARE(dialog.CompletionText(), QStringLiteral("2 of 4 courseworks completed"));
    }
    void gradeLine_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<QString>("line");

        QTest::newRow("no score") << -1.0 << QStringLiteral("No Score");
        QTest::newRow("rounded up") << 0.87654 << QStringLiteral("Grade: 87.66% B");
        QTest::newRow("above 100 keeps hundredths") << 1.125 << QStringLiteral("Grade: 112.5% A");
        QTest::newRow("zero is a score") << 0.0 << QStringLiteral("Grade: 0%");
    }
    void gradeLine()
    {
        QFETCH(double, stored);
        QFETCH(QString, line);

        // The line reads the stored grade; it does not recompute it.
        const quint32 course = CourseWithMinimums(QStringLiteral("Geology"), stored);
        Records::CwType(course, QStringLiteral("Homework"));

        ProgressReportDlg dialog(course);
        QCOMPARE(dialog.GradeText(), line);
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("gradeLabel"))->text(), line);
    }
    void gradeLineShowsPrediction()
    {
        const quint32 course = CourseWithMinimums(QStringLiteral("Geology"), 0.72);
        const quint32 other = CourseWithMinimums(QStringLiteral("History"), 0.72);
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(course, 0.95);

        QCOMPARE(ProgressReportDlg(course).GradeText(), QStringLiteral("Grade: 95% A"));
        QCOMPARE(ProgressReportDlg(other).GradeText(), QStringLiteral("Grade: 72% C"));
        CPredictionStore::Instance().SetActive(false);
        QCOMPARE(ProgressReportDlg(course).GradeText(), QStringLiteral("Grade: 72% C"));
    }
};

QTEST_MAIN(TestProgressReportDlg)
#include "tst_progressreportdlg.moc"
