// The Today list for a fixed clock: what falls into it, in what order, and
// its text and JSON forms read back.
// Fault tried, and caught: the window ending at the start of its last day
// (window, "last minute of the seventh day").
#include "BrindleData.h"
#include "support/Records.h"
#include "support/TestDatabase.h"
#include "today/DueList.h"
#include "today/DueListFormat.h"
#include "today/ReadOnlyDatabase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

const QDateTime Now(QDate(2026, 3, 10), QTime(12, 0));

double At(int days, QTime time)
{
    return BrindleDate::FromDateTime(QDateTime(Now.date().addDays(days), time));
}

} // namespace

class TestDueList : public QObject
{
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale::c()); }

    void window_data()
    {
        QTest::addColumn<double>("due");
        QTest::addColumn<int>("completed");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<int>("days");
        QTest::addColumn<bool>("listed");
        QTest::addColumn<bool>("pastDue");

        const double minute = 1.0 / (24 * 60);
        const double now = BrindleDate::FromDateTime(Now);
        QTest::newRow("past due a minute ago, half done") << now - minute << 50 << false << 7 << true << true;
        QTest::newRow("later today, no days ahead") << now + minute << 0 << false << 0 << true << false;
        QTest::newRow("tomorrow, no days ahead") << At(1, QTime(0, 0)) << 0 << false << 0 << false << false;
        QTest::newRow("last minute of the seventh day") << At(7, QTime(23, 59)) << 0 << false << 7 << true << false;
        QTest::newRow("first minute of the eighth day") << At(8, QTime(0, 0)) << 0 << false << 7 << false << false;
        QTest::newRow("99 percent is not done") << now + minute << 99 << false << 7 << true << false;
        QTest::newRow("done") << now - 1 << 100 << false << 7 << false << false;
        QTest::newRow("archived semester") << now + 1 << 0 << true << 7 << false << false;
    }

    void window()
    {
        QFETCH(double, due);
        QFETCH(int, completed);
        QFETCH(bool, archived);
        QFETCH(int, days);
        QFETCH(bool, listed);
        QFETCH(bool, pastDue);

        TestDatabase database;
        QVERIFY(database.IsReady());
        const quint32 semester = archived ? Records::Semester(QStringLiteral("Fall")) : 0;
        const quint32 course = Records::Course(QStringLiteral("Chemistry"), semester);
        const quint32 id = Records::Coursework(course, 0, QStringLiteral("Lab report"), -1, -1, due,
                                               static_cast<quint16>(completed));

        CDueList list;
        QVERIFY(list.Read(Now, days));
        QCOMPARE(list.Items().size(), listed ? 1u : 0u);
        if (listed) {
            const DueItem& item = list.Items().front();
            QCOMPARE(item.courseworkId, id);
            QCOMPARE(item.course, QStringLiteral("Chemistry"));
            QCOMPARE(item.pastDue, pastDue);
            QCOMPARE(item.due, BrindleDate::ToDateTime(due));
        }
    }

    // Past due first, then by due time across courses; the read-only mount
    // reads what Brindle wrote.
    void orderAndForms()
    {
        TestDatabase database;
        QVERIFY(database.IsReady());
        const quint32 chemistry = Records::Course(QStringLiteral("Chemistry"));
        const quint32 history = Records::Course(QStringLiteral("History of Art"));
        Records::Coursework(chemistry, 0, QStringLiteral("Quiz"), -1, -1, At(3, QTime(9, 0)));
        Records::Coursework(history, 0, QStringLiteral("Essay \"Light\""), -1, -1, At(-2, QTime(17, 0)));
        Records::Coursework(history, 0, QStringLiteral("Reading"), -1, -1, At(0, QTime(18, 30)));

        CAppStateTable::Instance().Close();
        QString error;
        QVERIFY2(ReadOnlyDatabase::Mount(database.Path(), &error), qPrintable(error));
        CDueList list;
        QVERIFY(list.Read(Now, 7));
        // The companion never writes: the mount refuses it.
        Records::Coursework(chemistry, 0, QStringLiteral("refused"), -1, -1, At(1, QTime(9, 0)));
        ReadOnlyDatabase::Unmount();
        QVERIFY(database.Reopen());
        QCOMPARE(Records::Count("Coursework"), 3);

        QStringList names;
        for (const DueItem& item : list.Items())
            names << item.name;
        QCOMPARE(names, (QStringList{QStringLiteral("Essay \"Light\""), QStringLiteral("Reading"),
                                     QStringLiteral("Quiz")}));

        const QStringList lines = DueListFormat::Text(list.Items()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines[0].endsWith(QStringLiteral("past due")));

        QJsonParseError parse;
        const QJsonDocument document = QJsonDocument::fromJson(DueListFormat::Json(list.Items()), &parse);
        QCOMPARE(parse.error, QJsonParseError::NoError);
        const QJsonArray array = document.array();
        QCOMPARE(array.size(), 3);
        for (int i = 0; i < 3; ++i) {
            const DueItem& item = list.Items()[size_t(i)];
            const QJsonObject object = array[i].toObject();
            QCOMPARE(object.value(QStringLiteral("id")).toInteger(), qint64(item.courseworkId));
            QCOMPARE(object.value(QStringLiteral("name")).toString(), item.name);
            QCOMPARE(object.value(QStringLiteral("course")).toString(), item.course);
            QCOMPARE(QDateTime::fromString(object.value(QStringLiteral("due")).toString(), Qt::ISODate),
                     item.due);
            QCOMPARE(object.value(QStringLiteral("pastDue")).toBool(), item.pastDue);
        }
    }

    void missingOrForeignFileIsRefused()
    {
        TestDatabase database;
        QVERIFY(database.IsReady());
        CAppStateTable::Instance().Close();
        const QString missing = database.Folder() + QStringLiteral("/none.db");
        QString error;
        QVERIFY(!ReadOnlyDatabase::Mount(missing, &error));
        QVERIFY(!QFile::exists(missing));
        QVERIFY(error.contains(missing));

        CDueList list;
        QVERIFY(!list.Read(Now, 7));
        QVERIFY(!list.ErrorText().isEmpty());
        QVERIFY(database.Reopen());
    }
};

QTEST_GUILESS_MAIN(TestDueList)
#include "tst_duelist.moc"
