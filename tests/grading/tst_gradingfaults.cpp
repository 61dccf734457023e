// The grading policy dialog's OK with an untouched new-type pane and with a
// write that fails, and the report card's chart with percents of any size.
#include "BrindleData.h"
#include "controls/NumericEdit.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "res/strings/ControlStrings.h"
#include "res/strings/GradingPolicyStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QLineEdit>
#include <QtTest>

#include <limits>

namespace {

quint32 CourseWithType(quint32* typeId)
{
    const quint32 course = Records::Course(QStringLiteral("Art"));
    *typeId = Records::CwType(course, QStringLiteral("Homework"), 0.0, 0, 0);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    return course;
}

QStringList TypeNames(quint32 courseId)
{
    QStringList names;
    CCwTypeTable types;
    if (!types.Open(0))
        return names;
    const CCeDBProp key(courseId);
    types.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = types.MoveFirst(1); ok; ok = types.MoveNext(1))
        names << types.GetCwTypeName();
    return names;
}

} // namespace

class TestGradingFaults : public QObject
{
    Q_OBJECT

private slots:
    void untouchedNewTypeIsDropped_data();
    void untouchedNewTypeIsDropped();
    void failedWriteRollsBack_data();
    void failedWriteRollsBack();
    void chartStaysBounded_data();
    void chartStaysBounded();
    void chartGivesNamesTheirWidth();
};

void TestGradingFaults::untouchedNewTypeIsDropped_data()
{
    QTest::addColumn<QString>("typedName");
    QTest::addColumn<QString>("typedWeight");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("types");

    QTest::newRow("untouched") << QString() << QString() << true << QStringList()
                               << QStringList{QStringLiteral("Homework")};
    QTest::newRow("named") << QStringLiteral("Labs") << QString() << true << QStringList()
                           << QStringList{QStringLiteral("Homework"), QStringLiteral("Labs")};
    QTest::newRow("weight without a name") << QString() << QStringLiteral("5") << false
                                           << QStringList{GradingPolicyStrings::TypeNameEmpty()}
                                           << QStringList{QStringLiteral("Homework")};
}

void TestGradingFaults::untouchedNewTypeIsDropped()
{
    QFETCH(QString, typedName);
    QFETCH(QString, typedWeight);
    QFETCH(bool, saved);
    QFETCH(QStringList, messages);
    QFETCH(QStringList, types);

    TestDatabase db;
    QVERIFY(db.IsReady());
    quint32 type = 0;
    const quint32 course = CourseWithType(&type);

    GradingDlg dialog(course, true);
    dialog.SetWeighting(CGradingPolicyTable::WeightByType);
    CwTypeEditor* editor = dialog.TypesPage()->Editor();
    QTest::keyClicks(editor->NameEdit(), typedName);
    if (!typedWeight.isEmpty()) {
        auto* weight =
            dialog.TypesPage()->findChild<CNumericEdit*>(QStringLiteral("cwTypeWeightEdit"));
        QVERIFY(weight);
        weight->setText(typedWeight);
    }
    MessageAnswers answers;
    QCOMPARE(dialog.Save(), saved);
    QCOMPARE(answers.Texts(), messages);
    QCOMPARE(TypeNames(course), types);
    QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
             saved ? quint32(CGradingPolicyTable::WeightByType)
                   : quint32(CGradingPolicyTable::WeightNone));
}

void TestGradingFaults::failedWriteRollsBack_data()
{
    QTest::addColumn<QByteArray>("refusedTable");
    QTest::addColumn<QByteArray>("refusedStep");
    QTest::newRow("type order row") << QByteArray("CwTypeOrder") << QByteArray("INSERT");
    QTest::newRow("type record") << QByteArray("CwType") << QByteArray("UPDATE");
    QTest::newRow("minimum percent") << QByteArray("GradingPolicyGrade") << QByteArray("UPDATE");
}

void TestGradingFaults::failedWriteRollsBack()
{
    QFETCH(QByteArray, refusedTable);
    QFETCH(QByteArray, refusedStep);

    TestDatabase db;
    QVERIFY(db.IsReady());
    quint32 type = 0;
    const quint32 course = CourseWithType(&type);
    QVERIFY(CDataTable::GetMount()->Execute("CREATE TRIGGER Refuse BEFORE " + refusedStep + " ON " +
                                            refusedTable +
                                            " BEGIN SELECT RAISE(ABORT, 'refused'); END"));

    GradingDlg dialog(course, true);
    dialog.SetWeighting(CGradingPolicyTable::WeightByType);
    QTest::keyClicks(dialog.TypesPage()->Editor()->NameEdit(), QStringLiteral("Labs"));
    QVERIFY(dialog.ApplyTypeEdit());
    dialog.EditMinimum(0);
    auto* minimum = dialog.findChild<CNumericEdit*>(QStringLiteral("minimumPercentEdit"));
    if (minimum)
        minimum->setText(QStringLiteral("95"));

    MessageAnswers answers;
    dialog.accept();

    QCOMPARE(dialog.result(), 0); // still open
    // The store's own reason, through the message every failed OK shows.
    QCOMPARE(answers.Texts(),
             QStringList{ControlStrings::ChangeNotSaved(QStringLiteral("refused"))});
    QCOMPARE(TypeNames(course), QStringList{QStringLiteral("Homework")});
    QCOMPARE(Records::Count("CwTypeOrder"), 1);
    QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
             quint32(CGradingPolicyTable::WeightNone));
}

void TestGradingFaults::chartStaysBounded_data()
{
    QTest::addColumn<double>("fraction");
    QTest::newRow("an ordinary grade") << 0.87;
    QTest::newRow("950000 %") << 9500.0;    // 95 of 0.0001 points
    QTest::newRow("beyond 1e15 %") << 1e14; // a step of 20 no longer moves
    QTest::newRow("largest double") << std::numeric_limits<double>::max();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
}

void TestGradingFaults::chartStaysBounded()
{
    QFETCH(double, fraction);
    GradeChart chart;
    chart.SetCourses({{QStringLiteral("Physics"), fraction, {{QStringLiteral("A"), 90.0}}},
                      {QStringLiteral("Art"), 0.75, {{QStringLiteral("A"), 60.0}}}});
    QVERIFY(chart.ScaleHigh() <= GradeChart::MaxScale);
    QVERIFY(chart.ScaleLow() < chart.ScaleHigh());
    const std::vector<double> ticks = chart.Ticks();
    QVERIFY(ticks.size() >= 2);
    QVERIFY(ticks.size() <= size_t(GradeChart::MaxTicks) + 1);
    QVERIFY(ticks.front() >= chart.ScaleLow());
    QVERIFY(ticks.back() <= chart.ScaleHigh());
    // Drawing ends (it used to step through every 20 % up to the percent).
    chart.resize(chart.sizeHint());
    QVERIFY(!chart.grab().isNull());
}

void TestGradingFaults::chartGivesNamesTheirWidth()
{
    const QString name = QStringLiteral("Introduction to Organic Chemistry II");
    GradeChart chart;
    chart.SetCourses({{name, 0.8, {{QStringLiteral("A"), 90.0}}}});
    const int needed = chart.fontMetrics().horizontalAdvance(name);
    // The chart asks for the name's width beside a usable track.
    QVERIFY(chart.sizeHint().width() > needed + chart.fontMetrics().height() * 10);
}

QTEST_MAIN(TestGradingFaults)
#include "tst_gradingfaults.moc"
