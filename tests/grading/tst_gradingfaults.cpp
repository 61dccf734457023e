// The grading policy dialog's OK with an untouched new-type pane and with a
// write that fails, and the report card's chart with percents of any size.
//
// Fault tried and caught: OK no longer discarding an untouched new-type pane
// ("untouched pane is no type").
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
    void okWithTheNewTypePane_data();
    void okWithTheNewTypePane();
    void chartStaysBounded_data();
    void chartStaysBounded();
};

void TestGradingFaults::okWithTheNewTypePane_data()
{
    QTest::addColumn<QString>("typedName");
    QTest::addColumn<QString>("typedWeight");
    QTest::addColumn<QByteArray>("refused"); // "<step> ON <table>" a trigger aborts
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("types");

    const QString homework = QStringLiteral("Homework");
    const QStringList notSaved{ControlStrings::ChangeNotSaved(QStringLiteral("refused"))};
    QTest::newRow("untouched pane is no type") << QString() << QString() << QByteArray()
                                               << QStringList() << QStringList{homework};
    QTest::newRow("named") << QStringLiteral("Labs") << QString() << QByteArray() << QStringList()
                           << QStringList{homework, QStringLiteral("Labs")};
    QTest::newRow("weight without a name")
        << QString() << QStringLiteral("5") << QByteArray()
        << QStringList{GradingPolicyStrings::TypeNameEmpty()} << QStringList{homework};
    // A failed write rolls every write of the OK back, with the store's reason.
    QTest::newRow("type order row refused") << QStringLiteral("Labs") << QString()
                                            << QByteArray("INSERT ON CwTypeOrder") << notSaved
                                            << QStringList{homework};
    QTest::newRow("type record refused") << QStringLiteral("Labs") << QString()
                                         << QByteArray("UPDATE ON CwType") << notSaved
                                         << QStringList{homework};
    QTest::newRow("minimum percent refused") << QStringLiteral("Labs") << QString()
                                             << QByteArray("UPDATE ON GradingPolicyGrade")
                                             << notSaved << QStringList{homework};
}

void TestGradingFaults::okWithTheNewTypePane()
{
    QFETCH(QString, typedName);
    QFETCH(QString, typedWeight);
    QFETCH(QByteArray, refused);
    QFETCH(QStringList, messages);
    QFETCH(QStringList, types);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Art"));
    Records::CwType(course, QStringLiteral("Homework"), 0.0, 0, 0);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    if (!refused.isEmpty())
        QVERIFY(CDataTable::GetMount()->Execute("CREATE TRIGGER Refuse BEFORE " + refused +
                                                " BEGIN SELECT RAISE(ABORT, 'refused'); END"));

    GradingDlg dialog(course, true);
    dialog.SetWeighting(CGradingPolicyTable::WeightByType);
    QTest::keyClicks(dialog.TypesPage()->Editor()->NameEdit(), typedName);
    if (!typedWeight.isEmpty()) {
        auto* weight =
            dialog.TypesPage()->findChild<CNumericEdit*>(QStringLiteral("cwTypeWeightEdit"));
        QVERIFY(weight);
        weight->setText(typedWeight);
    }
    if (!refused.isEmpty()) {
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.EditMinimum(0);
        auto* minimum = dialog.findChild<CNumericEdit*>(QStringLiteral("minimumPercentEdit"));
        QVERIFY(minimum);
        minimum->setText(QStringLiteral("95"));
    }

    MessageAnswers answers;
    dialog.accept();
    const bool saved = messages.isEmpty();
    QCOMPARE(dialog.result(), saved ? int(QDialog::Accepted) : 0); // else still open
    QCOMPARE(answers.Texts(), messages);
    QCOMPARE(TypeNames(course), types);
    QCOMPARE(Records::Count("CwTypeOrder"), int(types.size()));
    QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
             saved ? quint32(CGradingPolicyTable::WeightByType)
                   : quint32(CGradingPolicyTable::WeightNone));
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

QTEST_MAIN(TestGradingFaults)
#include "tst_gradingfaults.moc"
