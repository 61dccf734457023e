// Typing into a numeric field and setting its value, in C and German.
#include "controls/NumericEdit.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestNumericEdit : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void typing_data()
    {
        QTest::addColumn<QLocale::Language>("language");
        QTest::addColumn<bool>("wholeNumbers");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<double>("value"); // -999: empty

        const auto c = QLocale::C;
        const auto de = QLocale::German;
        QTest::newRow("empty") << c << false << QString() << QString() << -999.0;
        QTest::newRow("minus alone") << c << false << u"-"_s << u"-"_s << -999.0;
        QTest::newRow("point alone") << c << false << u"."_s << u"."_s << -999.0;
        QTest::newRow("negative decimal") << c << false << u"-4.25"_s << u"-4.25"_s << -4.25;
        QTest::newRow("letters refused") << c << false << u"1a2b"_s << u"12"_s << 12.0;
        QTest::newRow("exponent") << c << false << u"1e5"_s << u"1e5"_s << 100000.0;
        QTest::newRow("exponent still typed") << c << false << u"2e"_s << u"2e"_s << 2.0;
        QTest::newRow("whole exponent") << c << true << u"1e2"_s << u"1e2"_s << 100.0;
        QTest::newRow("German exponent") << de << false << u"2,5e2"_s << u"2,5e2"_s << 250.0;
        QTest::newRow("comma not a C separator") << c << false << u"3,5"_s << u"35"_s << 35.0;
        QTest::newRow("one separator only") << c << false << u"1.2.3"_s << u"1.23"_s << 1.23;
        QTest::newRow("minus only in front") << c << false << u"5-2"_s << u"52"_s << 52.0;
        QTest::newRow("whole refuses point") << c << true << u"2.5"_s << u"25"_s << 25.0;
        QTest::newRow("German comma") << de << false << u"3,5"_s << u"3,5"_s << 3.5;
        // The point is the German group separator; typed here it is a decimal.
        QTest::newRow("German point, three digits")
            << de << false << u"1.500"_s << u"1.500"_s << 1.5;
        QTest::newRow("German letters refused") << de << false << u"x7,2y"_s << u"7,2"_s << 7.2;
        QTest::newRow("German whole") << de << true << u"4,0"_s << u"40"_s << 40.0;
    }
    void typing()
    {
        QFETCH(QLocale::Language, language);
        QFETCH(bool, wholeNumbers);
        QFETCH(QString, keys);
        QFETCH(QString, shown);
        QFETCH(double, value);
        QLocale::setDefault(QLocale(language));
        CNumericEdit edit;
        edit.SetWholeNumbers(wholeNumbers);
        QTest::keyClicks(&edit, keys);
        QCOMPARE(edit.text(), shown);
        QCOMPARE(edit.Value(), value);
        QCOMPARE(edit.IsEmpty(), keys.isEmpty());
    }

    void setValue_data()
    {
        QTest::addColumn<QLocale::Language>("language");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("shown");
        QTest::newRow("empty value") << QLocale::C << -999.0 << QString();
        QTest::newRow("no group separator") << QLocale::C << 1234567.0 << u"1234567"_s;
        QTest::newRow("no needless digits") << QLocale::C << 0.1 + 0.2 << u"0.3"_s;
        QTest::newRow("German") << QLocale::German << 1234.5 << u"1234,5"_s;
    }
    void setValue()
    {
        QFETCH(QLocale::Language, language);
        QFETCH(double, value);
        QFETCH(QString, shown);
        QLocale::setDefault(QLocale(language));
        CNumericEdit edit;
        edit.setText(u"5"_s);
        edit.SetValue(value);
        QCOMPARE(edit.text(), shown);
        QCOMPARE(edit.IsEmpty(), shown.isEmpty());
        // What is shown reads back as the same number.
        QCOMPARE(edit.Value(), shown.isEmpty() ? -999.0 : value);
    }
};

QTEST_MAIN(TestNumericEdit)
#include "tst_numericedit.moc"
