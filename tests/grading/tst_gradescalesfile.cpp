// The predefined grade scales file: the shipped file, the program's own
// number routines, truncated and hostile input.
#include "grading/GradeScalesFile.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Everything read, as text, so that two readings compare as a whole (a NaN
// points value prints as "nan" and equals itself).
QStringList Describe(const std::vector<GradeScale>& scales)
{
    QStringList lines;
    for (const GradeScale& scale : scales) {
        lines << scale.name;
        for (const GradeScaleEntry& grade : scale.grades)
            lines << grade.name + QLatin1Char('=') + QString::number(grade.points, 'g', 17);
    }
    return lines;
}

// The points of the one grade of a one-scale file whose points field is given.
double PointsOf(const QByteArray& field)
{
    const auto scales = ParseGradeScales("1,S,1,A," + field);
    return scales.size() == 1 && scales[0].grades.size() == 1 ? scales[0].grades[0].points
                                                              : qQNaN();
}

// Restores an environment variable when the test ends, however it ends.
class EnvironmentGuard
{
public:
    explicit EnvironmentGuard(const char* name)
        : m_name(name), m_had(qEnvironmentVariableIsSet(name)), m_value(qgetenv(name))
    {
    }
    ~EnvironmentGuard()
    {
        if (m_had)
            qputenv(m_name, m_value);
        else
            qunsetenv(m_name);
    }

private:
    const char* m_name;
    bool m_had;
    QByteArray m_value;
};

} // namespace

class TestGradeScalesFile : public QObject
{
    Q_OBJECT

private slots:
    void shippedFileHoldsTheCommonScales();
    void missingFileGivesNoScales();
    void numbers_data();
    void numbers();
    void fieldsKeepLineBreaksAndWidenSigned();
    void structure_data();
    void structure();
    void anyInputReturns();
};

void TestGradeScalesFile::shippedFileHoldsTheCommonScales()
{
    const std::vector<GradeScale> scales = LoadPredefinedGradeScales();
    QVERIFY2(scales.size() >= 3, "GradeScales.txt is not staged or lost scales");
    bool plainFour = false, plusMinus = false, fourThree = false;
    for (const GradeScale& scale : scales) {
        QVERIFY(!scale.name.isEmpty());
        QVERIFY(!scale.grades.empty() && scale.grades.size() <= 12);
        QStringList names;
        for (size_t g = 0; g < scale.grades.size(); ++g) {
            const GradeScaleEntry& e = scale.grades[g];
            QVERIFY2(e.points > 0.0 && e.points <= 4.3,
                     qPrintable(scale.name + QLatin1Char(' ') + e.name));
            if (g > 0) // best grade first; only passing grades
                QVERIFY(e.points <= scale.grades[g - 1].points);
            names << e.name;
        }
        const QString joined = names.join(QLatin1Char(' '));
        plainFour |= joined == QStringLiteral("A B C D") && scale.grades[0].points == 4.0;
        plusMinus |= joined == QStringLiteral("A+ A A- B+ B B- C+ C C- D+ D D-") &&
                     scale.grades[0].points == 4.0 && scale.grades[11].points == 0.7;
        fourThree |= scale.grades[0].name == QStringLiteral("A+") && scale.grades[0].points == 4.3;
    }
    QVERIFY(plainFour);
    QVERIFY(plusMinus);
    QVERIFY(fourThree);
}

void TestGradeScalesFile::missingFileGivesNoScales()
{
    EnvironmentGuard guard("BRINDLE_INSTALL_DIR");
    QTemporaryDir empty;
    qputenv("BRINDLE_INSTALL_DIR", empty.path().toLocal8Bit());
    QVERIFY(LoadPredefinedGradeScales().empty());
}

void TestGradeScalesFile::numbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<double>("points");

    QTest::newRow("whole") << QByteArray("4") << 4.0;
    QTest::newRow("3.25") << QByteArray("3.25") << 3.25;
    QTest::newRow("3.05: B 5, L 2") << QByteArray("3.05") << 3.05;
    QTest::newRow("-0.5 reads 0.5") << QByteArray("-0.5") << 0.5;
    QTest::newRow("-3.25") << QByteArray("-3.25") << -3.25;
    QTest::newRow("only the first dot splits")
        << QByteArray("1.2.") << 1.18; // B = 2 x 10 + ('.' - '0')
    QTest::newRow("a letter adds its code minus 48") << QByteArray("x") << 72.0;
    QTest::newRow("a line break is a character too") << QByteArray("\n3") << -377.0;
    QTest::newRow("empty") << QByteArray() << 0.0;
    QTest::newRow("a lone minus") << QByteArray("-") << 0.0;
    QTest::newRow("leading zeros of a long field") << QByteArray(400, '0') + "7" << 7.0;
    // The end of the file's last line, as editors write it, is not part of it.
    QTest::newRow("final line feed") << QByteArray("0.7\n") << 0.7;
    QTest::newRow("final CR LF") << QByteArray("0.7\r\n") << 0.7;
    QTest::newRow("final blank lines") << QByteArray("0.7\n\r\n\n") << 0.7;
}

void TestGradeScalesFile::numbers()
{
    QFETCH(QByteArray, field);
    QFETCH(double, points);
    QCOMPARE(PointsOf(field), points);
}

void TestGradeScalesFile::fieldsKeepLineBreaksAndWidenSigned()
{
    const auto scales = ParseGradeScales("1,\r\nMy\xE9 scale,2,A,4.0,B\n,3.0");
    QCOMPARE(scales.size(), size_t(1));
    QCOMPARE(scales[0].name, QStringLiteral("\r\nMy") + QChar(0xFFE9) + QStringLiteral(" scale"));
    QCOMPARE(scales[0].grades.size(), size_t(2));
    QCOMPARE(scales[0].grades[1].name, QStringLiteral("B\n"));
    QCOMPARE(scales[0].grades[1].points, 3.0);
}

void TestGradeScalesFile::structure_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QList<int>>("gradeCounts"); // one entry per scale read

    QTest::newRow("empty") << QByteArray() << QList<int>{};
    QTest::newRow("no scales") << QByteArray("0") << QList<int>{};
    QTest::newRow("negative count") << QByteArray("-2,S,1,A,4") << QList<int>{};
    QTest::newRow("two scales") << QByteArray("2,S,1,A,4,T,2,A,4,B,3") << QList<int>{1, 2};
    QTest::newRow("fields beyond the count are ignored")
        << QByteArray("1,S,1,A,4,T,1,A,4") << QList<int>{1};
    QTest::newRow("truncated inside a grade") << QByteArray("2,S,2,A,4.0,B") << QList<int>{1};
    QTest::newRow("truncated after a name") << QByteArray("1,S") << QList<int>{};
    QTest::newRow("huge counts, few fields")
        << QByteArray("99999999999999999999,S,88888888888,A,4") << QList<int>{1};
    QTest::newRow("count of digits beyond any double")
        << QByteArray(400, '9') + ",S,1,A,4" << QList<int>{1};
}

void TestGradeScalesFile::structure()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QList<int>, gradeCounts);
    QList<int> read;
    for (const GradeScale& scale : ParseGradeScales(bytes))
        read << int(scale.grades.size());
    QCOMPARE(read, gradeCounts);
}

void TestGradeScalesFile::anyInputReturns()
{
    // Fixed seed: a failure is reproducible. Inputs are biased towards the
    // characters that matter to the parser so that they get deep into it.
    QRandomGenerator random(20240611);
    static const char alphabet[] = ",,,,0123456789-.\r\n";
    const QByteArray shipped = "3,4.0,4,A,4.0,B,3.0,C,2.0,D,1.0,P,2,A+,4.3,A,4.0,Q,1,X,-0.5";
    int checked = 0;
    for (int round = 0; round < 4000; ++round) {
        QByteArray bytes;
        const int length = random.bounded(0, round < 3900 ? 120 : 20000);
        bytes.reserve(length);
        const bool anyByte = random.bounded(4) == 0;
        for (int i = 0; i < length; ++i) {
            bytes += anyByte ? static_cast<char>(random.bounded(256))
                             : alphabet[random.bounded(int(sizeof alphabet - 1))];
        }
        const auto scales = ParseGradeScales(bytes);
        // A last line ended as editors end it reads the same.
        const QStringList read = Describe(scales);
        QCOMPARE(Describe(ParseGradeScales(bytes + "\n")), read);
        QCOMPARE(Describe(ParseGradeScales(bytes + "\r\n")), read);
        size_t grades = 0;
        for (const GradeScale& scale : scales)
            grades += scale.grades.size();
        // Every scale takes two fields and every grade two, after the count.
        QVERIFY(2 * (scales.size() + grades) < size_t(bytes.count(',') + 1));
        ++checked;
    }
    for (qsizetype cut = 0; cut <= shipped.size(); ++cut) {
        const auto scales = ParseGradeScales(shipped.left(cut));
        QVERIFY(scales.size() <= 3);
        QCOMPARE(Describe(ParseGradeScales(shipped.left(cut) + "\r\n")), Describe(scales));
        ++checked;
    }
    // One field of a million digits, and of a million minus signs.
    QVERIFY(ParseGradeScales(QByteArray(1000000, '9')).empty());
    QVERIFY(ParseGradeScales(QByteArray(1000000, '-')).empty());
    // Decimal parts too long for a double still give one grade (its points NaN).
    const auto longPoints = ParseGradeScales("1,S,1,A,1." + QByteArray(400, '5'));
    QVERIFY(longPoints.size() == 1 && longPoints[0].grades.size() == 1);
    QCOMPARE(checked, 4000 + int(shipped.size()) + 1);
}

QTEST_GUILESS_MAIN(TestGradeScalesFile)
#include "tst_gradescalesfile.moc"
