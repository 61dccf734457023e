// A due time is a wall-clock time: exported as a floating time, it reads the
// same in any time zone and on either side of a daylight-saving change, and
// saving again after the zone changed does not move it. CTest runs this
// under two zones.
#include "ExportFixture.h"
#include "editors/CourseworkDlg.h"
#include "store/BrindleData.h"
#include "support/PimClients.h"
#include "support/Records.h"

#include <QAction>
#include <QtTest>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

bool ExportTask(quint32 courseworkId)
{
    CourseworkDlg dialog;
    dialog.SetCourseworkID(courseworkId);
    if (!dialog.OnInitDialog())
        return false;
    QAction* tasks = dialog.findChild<QAction*>(u"actionExportTasks"_s);
    if (!tasks->isChecked())
        tasks->trigger();
    return dialog.OnOK();
}

} // namespace

class TestExportTimeZone : public QObject
{
    Q_OBJECT

private slots:
    void dueTimeStaysOnTheWallClock();
};

void TestExportTimeZone::dueTimeStaysOnTheWallClock()
{
    ExportFixture fixture;
    QVERIFY(fixture.IsReady());
    const quint32 course = Records::Course(u"Botany"_s);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    // One due date in northern summer, one in northern winter.
    const QDateTime dues[] = {QDateTime(QDate(2026, 7, 15), QTime(14, 30)),
                              QDateTime(QDate(2026, 1, 15), QTime(8, 5))};
    const QString dueLines[] = {u"DUE:20260715T143000"_s, u"DUE:20260115T080500"_s};
    quint32 work[2];
    for (int i = 0; i < 2; ++i) {
        work[i] = Records::Coursework(course, type, u"Work %1"_s.arg(i), -1.0, -1.0,
                                      BrindleDate::FromDateTime(dues[i]));
        QVERIFY(ExportTask(work[i]));
    }

    const QString folder = fixture.Folders().tasks;
    auto dueLinesInFiles = [&] {
        QStringList lines;
        for (const QString& file : ExportFixture::Items(folder))
            for (const QByteArray& line : ExportFixture::Read(folder + u'/' + file).split('\n'))
                if (line.startsWith("DUE"))
                    lines << QString::fromUtf8(line.trimmed());
        lines.sort();
        return lines;
    };
    QStringList expected{dueLines[0], dueLines[1]};
    expected.sort();
    QCOMPARE(dueLinesInFiles(), expected);

    if (!PimClients::Find(u"todoman"_s).isEmpty()) {
        for (const QString& zone : {qEnvironmentVariable("TZ"), u"Asia/Kathmandu"_s}) {
            // A fresh home each time: todoman's cache keeps due times as
            // instants of the zone it first read them in.
            PimClients clients(fixture.Folders());
            QVERIFY(clients.IsReady());
            QString error;
            const QString list =
                clients.Run(u"todoman"_s, {u"list"_s, u"--status"_s, u"ANY"_s}, {}, &error, zone);
            QVERIFY2(error.isEmpty(), qPrintable(error));
            QVERIFY2(list.contains(u"2026-07-15 14:30"_s), qPrintable(zone + u": "_s + list));
            QVERIFY2(list.contains(u"2026-01-15 08:05"_s), qPrintable(zone + u": "_s + list));
        }
    } else {
        qInfo("todoman is not installed: only the files are checked");
    }

    // The machine moves to another zone; saving again keeps the wall-clock times.
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "Pacific/Chatham");
    tzset();
    for (quint32 id : work)
        QVERIFY(ExportTask(id));
    qputenv("TZ", zone);
    tzset();
    QCOMPARE(dueLinesInFiles(), expected);
    QCOMPARE(ExportFixture::Items(folder).size(), 2);
}

QTEST_MAIN(TestExportTimeZone)
#include "tst_exporttimezone.moc"
