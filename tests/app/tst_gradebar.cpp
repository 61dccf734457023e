// The grade bar's texts and rounding, and the banners with their menu.
// Checked against: the course percent without its cut above 100 (PercentOf for
// PercentOfCut). Rounding up itself is tst_gradetext's.
#include "BrindleData.h"
#include "app/GradeBarText.h"
#include "app/MainView.h"
#include "grading/PredictionStore.h"
#include "support/DatabaseTest.h"
#include "support/Records.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// The default scale A to D with minimum percents 90, 80, 70 and 60.
quint32 GradedCourse(const QString& name, double grade, double hours = 0.0)
{
    const quint32 course = Records::Course(name, 0, grade);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    CDataTable::GetMount()->Execute("UPDATE Course SET CourseHours = " + QByteArray::number(hours) +
                                    " WHERE id = " + QByteArray::number(course));
    return course;
}

void WeightByHours(bool weighted)
{
    CGPAInfoTable info;
    info.Open();
    if (!info.MoveFirst(1))
        info.NewRecord(0);
    info.SetWeightedByCourseHours(weighted ? 1 : 0);
    info.UpdateRecord();
}

} // namespace

class TestGradeBar : public DatabaseTest
{
    Q_OBJECT

private slots:
    void courseGrade_data()
    {
        QTest::addColumn<double>("grade");
        QTest::addColumn<double>("predicted"); // shown in prediction mode; -1 for off
        QTest::addColumn<QString>("expected");
        QTest::newRow("no score") << -1.0 << -1.0 << u"Grade: --"_s;
        QTest::newRow("just above 100 becomes 100") << 1.00004 << -1.0 << u"Grade: 100% A"_s;
        QTest::newRow("shown as 90 but graded on the unrounded value")
            << 0.899999 << -1.0 << u"Grade: 90% B"_s;
        QTest::newRow("0.57 times 10000 just below 5700") << 0.57 << -1.0 << u"Grade: 57%"_s;
        QTest::newRow("on the lowest minimum") << 0.6 << -1.0 << u"Grade: 60% D"_s;
        QTest::newRow("predicted grade") << 0.75 << 0.95 << u"Grade: 95% A"_s;
    }
    void courseGrade()
    {
        QFETCH(double, grade);
        QFETCH(double, predicted);
        QFETCH(QString, expected);
        const quint32 course = GradedCourse(u"Biology"_s, grade);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        if (predicted >= 0) {
            CPredictionStore::Instance().SetActive(true);
            CPredictionStore::Instance().SetPredictedGrade(course, predicted);
        }
        QCOMPARE(GradeBarText(), expected);
    }

    void gpa_data()
    {
        QTest::addColumn<QList<double>>("grades");
        QTest::addColumn<QList<double>>("hours");
        QTest::addColumn<bool>("byHours");
        QTest::addColumn<QString>("expected");
        // The calculation's own cases are tst_gradecalculation's; these are the texts.
        QTest::newRow("no course graded")
            << QList<double>{-1.0, -1.0} << QList<double>{3, 4} << false << u"GPA:"_s;
        QTest::newRow("A and B") << QList<double>{0.95, 0.85, -1.0} << QList<double>{3, 3, 3}
                                 << false << u"GPA: 3.50"_s;
        QTest::newRow("A for 4 hours, C for 2")
            << QList<double>{0.95, 0.75} << QList<double>{4, 2} << true << u"GPA: 3.33"_s;
    }
    void gpa()
    {
        QFETCH(QList<double>, grades);
        QFETCH(QList<double>, hours);
        QFETCH(bool, byHours);
        QFETCH(QString, expected);
        for (qsizetype i = 0; i < grades.size(); ++i)
            GradedCourse(u"Course %1"_s.arg(i), grades[i], hours[i]);
        WeightByHours(byHours);
        CAppStateTable::Instance().SetCurrentCourseID(AllCoursesID);
        QCOMPARE(GradeBarText(), expected);
    }

    void banner_data()
    {
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("exit");
        QTest::newRow("neither") << false << false << QString() << QString();
        QTest::newRow("prediction")
            << true << false << u"Grade Prediction Mode"_s << u"Exit Grade Prediction Mode"_s;
        QTest::newRow("archived") << false << true << u"Archived Semester"_s
                                  << u"Exit Archived Semester"_s;
        QTest::newRow("prediction wins")
            << true << true << u"Grade Prediction Mode"_s << u"Exit Grade Prediction Mode"_s;
    }
    void banner()
    {
        QFETCH(bool, predicting);
        QFETCH(bool, archived);
        QFETCH(QString, text);
        QFETCH(QString, exit);
        CPredictionStore::Instance().SetActive(predicting);
        CAppStateTable::Instance().SetCurrentSemesterID(
            archived ? Records::Semester(u"Spring 2024"_s) : WorkingSemesterID);
        CMainView view;
        view.show();
        view.LayoutView();
        QCOMPARE(view.Banner()->isVisible(), !text.isEmpty());
        if (text.isEmpty())
            return;
        QCOMPARE(view.Banner()->text(), text);

        QSignalSpy command(&view, &CMainView::BannerCommand);
        QMenu* menu = view.OpenBannerMenu(QPoint(4, 4));
        QCOMPARE(menu->actions().size(), 1);
        QCOMPARE(menu->actions().constFirst()->text(), exit);
        menu->actions().constFirst()->trigger();
        QCOMPARE(command.count(), 1);
        menu->close();
    }
};

QTEST_MAIN(TestGradeBar)
#include "tst_gradebar.moc"
