// A due time is a wall-clock time: exported as a floating time, it reads the
// same in any time zone and on either side of a daylight-saving change, and
// saving again after the zone changed does not move it. CTest runs this
// under two zones.
// Fault tried, and caught: the due time turned into UTC before it is written
// as a floating time.
#include "ExportFixture.h"
#include "support/PimClients.h"
#include "support/Records.h"

#include <QtTest>

#include <ctime>

using namespace Qt::StringLiterals;

class TestExportTimeZone : public ExportTest
{
    Q_OBJECT

private slots:
    void init() { ExportTest::init(); }
    void cleanup() { ExportTest::cleanup(); }
    void dueTimeStaysOnTheWallClock()
    {
        const quint32 course = Records::Course(u"Botany"_s);
        const quint32 type = Records::CwType(course, u"Homework"_s);
        // One due date in northern summer, one in northern winter.
        const QDateTime dues[] = {QDateTime(QDate(2026, 7, 15), QTime(14, 30)),
                                  QDateTime(QDate(2026, 1, 15), QTime(8, 5))};
        quint32 work[2];
        for (int i = 0; i < 2; ++i) {
            work[i] = Records::Coursework(course, type, u"Work %1"_s.arg(i), -1.0, -1.0,
                                          BrindleDate::FromDateTime(dues[i]));
            QVERIFY(Export(work[i], true, false));
        }
        const QString folder = PimFolders::Load().tasks;
        auto dueLines = [&] {
            QStringList lines;
            for (const QString& file : Items(folder))
                for (const QByteArray& line : Read(folder + u'/' + file).split('\n'))
                    if (line.startsWith("DUE"))
                        lines << QString::fromUtf8(line.trimmed());
            return lines;
        };
        const QStringList expected{u"DUE:20260715T143000"_s, u"DUE:20260115T080500"_s};
        QCOMPARE(dueLines(), expected);

        // The machine moves to another zone; saving again keeps the wall-clock times.
        const QByteArray machineZone = qgetenv("TZ");
        qputenv("TZ", "Pacific/Chatham");
        tzset();
        for (quint32 id : work)
            QVERIFY(Export(id, true, false));
        qputenv("TZ", machineZone);
        tzset();
        QCOMPARE(dueLines(), expected);

        // A fresh home for each zone: todoman's cache keeps due times as
        // instants of the zone it first read them in.
        for (const QString& zone : {qEnvironmentVariable("TZ"), u"Asia/Kathmandu"_s}) {
            if (PimClients::Find(u"todoman"_s).isEmpty())
                QSKIP("todoman is not installed (scripts/install-deps.sh installs it)");
            PimClients clients(PimFolders::Load());
            QString error;
            const QString list =
                clients.Run(u"todoman"_s, {u"list"_s, u"--status"_s, u"ANY"_s}, {}, &error, zone);
            QVERIFY2(list.contains(u"2026-07-15 14:30"_s) && list.contains(u"2026-01-15 08:05"_s),
                     qPrintable(zone + u": "_s + list + error));
        }
    }
};

QTEST_MAIN(TestExportTimeZone)
#include "tst_exporttimezone.moc"
