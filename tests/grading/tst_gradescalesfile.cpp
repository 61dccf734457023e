// The predefined grade scales file: the shipped file, the program's own
// number routines, a last line ended with LF or CR LF, truncated and hostile
// input. (A missing file: tst_institutiondlg.)
//
// Faults tried and caught: the last line's LF / CR LF kept in the last field
// (numbers "final line feed", "final CR LF"; anyInputReturns).
#include "grading/GradeScalesFile.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

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

} // namespace

class TestGradeScalesFile : public QObject
{
    Q_OBJECT

private slots:
    void shippedFileHoldsTheCommonScales()
    {
        QStringList read;
        for (const GradeScale& scale : LoadPredefinedGradeScales()) {
            QStringList grades;
            for (const GradeScaleEntry& e : scale.grades)
                grades << e.name + QLatin1Char(' ') + QString::number(e.points);
            read << grades.join(QLatin1Char(','));
        }
        const QString below = u"A 4,A- 3.7,B+ 3.3,B 3,B- 2.7,C+ 2.3,C 2,C- 1.7,D+ 1.3,D 1,D- 0.7"_s;
        QCOMPARE(read,
                 (QStringList{u"A 4,B 3,C 2,D 1"_s, u"A+ 4,"_s + below, u"A+ 4.3,"_s + below}));
    }
    void numbers_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<double>("points");

        QTest::newRow("3.05: B 5, L 2") << QByteArray("3.05") << 3.05;
        QTest::newRow("-0.5 reads 0.5") << QByteArray("-0.5") << 0.5;
        QTest::newRow("only the first dot splits")
            << QByteArray("1.2.") << 1.18; // B = 2 x 10 + ('.' - '0')
        QTest::newRow("a letter adds its code minus 48") << QByteArray("x") << 72.0;
        QTest::newRow("a line break is a character too") << QByteArray("\n3") << -377.0;
        QTest::newRow("a lone minus") << QByteArray("-") << 0.0;
        QTest::newRow("leading zeros of a long field") << QByteArray(400, '0') + "7" << 7.0;
        // The end of the file's last line, as editors write it, is not part of it.
        QTest::newRow("final line feed") << QByteArray("0.7\n") << 0.7;
        QTest::newRow("final CR LF") << QByteArray("0.7\r\n") << 0.7;
        QTest::newRow("final blank lines") << QByteArray("0.7\n\r\n\n") << 0.7;
    }
    void numbers()
    {
        QFETCH(QByteArray, field);
        QFETCH(double, points);
        const auto scales = ParseGradeScales("1,S,1,A," + field);
        QVERIFY(scales.size() == 1 && scales[0].grades.size() == 1);
        QCOMPARE(scales[0].grades[0].points, points);
    }
    void fieldsKeepLineBreaksAndWidenSigned()
    {
        const auto scales = ParseGradeScales("1,\r\nMy\xE9 scale,2,A,4.0,B\n,3.0");
        QCOMPARE(scales.size(), size_t(1));
        QCOMPARE(scales[0].name, u"\r\nMy"_s + QChar(0xFFE9) + u" scale"_s);
        QCOMPARE(scales[0].grades.size(), size_t(2));
        QCOMPARE(scales[0].grades[1].name, u"B\n"_s);
        QCOMPARE(scales[0].grades[1].points, 3.0);
    }
    void structure_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<int>>("gradeCounts"); // one entry per scale read

        QTest::newRow("empty") << QByteArray() << QList<int>{};
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
        // Its points NaN, but one grade still.
        QTest::newRow("decimals beyond any double")
            << "1,S,1,A,1." + QByteArray(400, '5') << QList<int>{1};
    }
    void structure()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QList<int>, gradeCounts);
        QList<int> read;
        for (const GradeScale& scale : ParseGradeScales(bytes))
            read << int(scale.grades.size());
        QCOMPARE(read, gradeCounts);
    }
    void anyInputReturns()
    {
        // Fixed seed: a failure is reproducible. Inputs are biased towards the
        // characters that matter to the parser so that they get deep into it.
        QRandomGenerator random(20240611);
        static const char alphabet[] = ",,,,0123456789-.\r\n";
        for (int round = 0; round < 1000; ++round) {
            QByteArray bytes;
            const int length = random.bounded(0, round < 980 ? 120 : 20000);
            const bool anyByte = random.bounded(4) == 0;
            for (int i = 0; i < length; ++i)
                bytes += anyByte ? static_cast<char>(random.bounded(256))
                                 : alphabet[random.bounded(int(sizeof alphabet - 1))];
            const auto scales = ParseGradeScales(bytes);
            // A last line ended as editors end it reads the same.
            QCOMPARE(Describe(ParseGradeScales(bytes + "\r\n")), Describe(scales));
            size_t grades = 0;
            for (const GradeScale& scale : scales)
                grades += scale.grades.size();
            // Every scale takes two fields and every grade two, after the count.
            QVERIFY(2 * (scales.size() + grades) < size_t(bytes.count(',') + 1));
        }
        // One field of a million digits, and of a million minus signs.
        QVERIFY(ParseGradeScales(QByteArray(1000000, '9')).empty());
        QVERIFY(ParseGradeScales(QByteArray(1000000, '-')).empty());
    }
};

QTEST_GUILESS_MAIN(TestGradeScalesFile)
#include "tst_gradescalesfile.moc"
