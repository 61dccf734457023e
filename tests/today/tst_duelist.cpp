// The Today list for a fixed clock: what falls into it, in what order, and
// its text and JSON forms.
// Faults tried, and caught: the window ending at the start of its last day
// (window, "last minute of the seventh day"); work at 100 % listed ("done").
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

#include <optional>

using namespace Qt::StringLiterals;

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
    void init()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(m_db.emplace().IsReady());
    }
    void cleanup() { m_db.reset(); }

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
        const quint32 course = Records::Course(u"Chemistry"_s, archived ? Records::Semester(u"Fall"_s) : 0);
        const quint32 id = Records::Coursework(course, 0, u"Lab report"_s, -1, -1, due, quint16(completed));

        CDueList list;
        QVERIFY(list.Read(Now, days));
        QCOMPARE(list.Items().size(), listed ? 1u : 0u);
        if (listed) {
            const DueItem& item = list.Items().front();
            QCOMPARE(item.courseworkId, id);
            QCOMPARE(item.course, u"Chemistry"_s);
            QCOMPARE(item.pastDue, pastDue);
            QCOMPARE(item.due, BrindleDate::ToDateTime(due));
        }
    }

    // Past due first, then by due time across courses; the read-only mount
    // reads what Brindle wrote.
    void orderAndForms()
    {
        const quint32 chemistry = Records::Course(u"Chemistry"_s);
        const quint32 history = Records::Course(u"History of Art"_s);
        const quint32 quiz = Records::Coursework(chemistry, 0, u"Quiz"_s, -1, -1, At(3, QTime(9, 0)));
        const quint32 essay =
            Records::Coursework(history, 0, u"Essay \"Light\""_s, -1, -1, At(-2, QTime(17, 0)));
        const quint32 reading = Records::Coursework(history, 0, u"Reading"_s, -1, -1, At(0, QTime(18, 30)));

        CAppStateTable::Instance().Close();
        QString error;
        QVERIFY2(ReadOnlyDatabase::Mount(m_db->Path(), &error), qPrintable(error));
        CDueList list;
        QVERIFY(list.Read(Now, 7));
        // The companion never writes: the mount refuses it.
        Records::Coursework(chemistry, 0, u"refused"_s, -1, -1, At(1, QTime(9, 0)));
        ReadOnlyDatabase::Unmount();
        QVERIFY(m_db->Reopen());
        QCOMPARE(Records::Count("Coursework"), 3);

        QCOMPARE(DueListFormat::Text(list.Items()),
                 u"2026-03-08 17:00  History of Art  Essay \"Light\"  past due\n"
                 u"2026-03-10 18:30  History of Art  Reading\n"
                 u"2026-03-13 09:00  Chemistry       Quiz\n"_s);
        auto object = [](quint32 id, const QString& name, const QString& course, const QString& due,
                         bool pastDue) {
            return QJsonObject{{u"id"_s, qint64(id)}, {u"name"_s, name},       {u"course"_s, course},
                               {u"due"_s, due},       {u"pastDue"_s, pastDue}, {u"completed"_s, 0}};
        };
        const QJsonArray json{
            object(essay, u"Essay \"Light\""_s, u"History of Art"_s, u"2026-03-08T17:00:00"_s, true),
            object(reading, u"Reading"_s, u"History of Art"_s, u"2026-03-10T18:30:00"_s, false),
            object(quiz, u"Quiz"_s, u"Chemistry"_s, u"2026-03-13T09:00:00"_s, false)};
        QCOMPARE(QJsonDocument::fromJson(DueListFormat::Json(list.Items())).toJson(QJsonDocument::Compact),
                 QJsonDocument(json).toJson(QJsonDocument::Compact));
    }

    void missingOrForeignFileIsRefused()
    {
        CAppStateTable::Instance().Close();
        const QString missing = m_db->Folder() + u"/none.db"_s;
        QString error;
        QVERIFY(!ReadOnlyDatabase::Mount(missing, &error));
        QVERIFY(!QFile::exists(missing));
        QVERIFY(error.contains(missing));

        CDueList list;
        QVERIFY(!list.Read(Now, 7));
        QVERIFY(!list.ErrorText().isEmpty());
        QVERIFY(m_db->Reopen());
    }

private:
    std::optional<TestDatabase> m_db;
};

QTEST_GUILESS_MAIN(TestDueList)
#include "tst_duelist.moc"
