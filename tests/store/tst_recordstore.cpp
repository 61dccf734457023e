// The record store: seeks, orders, deletes inside a walk, filters. (Names in
// order without case: tst_database; record ids: tst_transactions.)
#include "BrindleData.h"
#include "Schema.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// The record ids a seek of the key finds, in the order of the sort.
template <typename Table, typename Key>
QList<quint32> Seek(Table& table, const Key& value, bool deleteEach = false)
{
    const CCeDBProp key(value);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QList<quint32> ids;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
        ids << table.GetRecordID();
        if (deleteEach)
            table.DeleteRecord(0);
    }
    return ids;
}

} // namespace

class TestRecordStore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

    void seeksAndDeletesInsideAWalk();
    void stringKeysSeekIgnoringCase_data();
    void stringKeysSeekIgnoringCase();
    void filterReadsOnlyListedPropertiesAndKeepsTheOthers();
    void missingOrDeletedRecords();
    void semesterCoursesFollowSignedPositions();
    void everySortOrderOpensAndSeeks();
    void nonFiniteNumbersAreStoredAsTheyAre();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestRecordStore::seeksAndDeletesInsideAWalk()
{
    const quint32 keep = Records::Course(u"Keep"_s);
    const quint32 drop = Records::Course(u"Drop"_s);
    QList<quint32> made;
    for (int i = 0; i < 4; ++i) {
        made << Records::Coursework(drop, 0, u"d%1"_s.arg(i));
        Records::Coursework(keep, 0, u"k%1"_s.arg(i));
    }
    CCourseworkTable table;
    QVERIFY(table.Open(0));
    QCOMPARE(Seek(table, drop), made); // equal keys in record id order
    QVERIFY(Seek(table, quint32(4711)).isEmpty());
    QCOMPARE(table.MoveNext(1), 0); // a seek without a match never positions

    // Deleting the current record: MoveNext goes on with its follower.
    QVERIFY(table.Open(1));
    QCOMPARE(Seek(table, drop, true), made);
    QVERIFY(Seek(table, drop).isEmpty());
    QCOMPARE(Records::Count("Coursework"), 4);
}

void TestRecordStore::stringKeysSeekIgnoringCase_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("sought");
    QTest::addColumn<bool>("found");
    QTest::newRow("ascii case") << u"Calculus II"_s << u"CALCULUS ii"_s << true;
    QTest::newRow("accented") << u"Études Françaises"_s << u"ÉTUDES FRANÇAISES"_s << true;
    QTest::newRow("different") << u"Calculus II"_s << u"Calculus III"_s << false;
    QTest::newRow("trailing blank differs") << u"Art"_s << u"Art "_s << false;
}

void TestRecordStore::stringKeysSeekIgnoringCase()
{
    QFETCH(QString, stored);
    QFETCH(QString, sought);
    QFETCH(bool, found);
    const quint32 id = Records::Course(stored);
    CCourseTable table;
    QVERIFY(table.Open(0));
    QCOMPARE(Seek(table, sought), found ? QList<quint32>{id} : QList<quint32>{});

    CBuildingTable building;
    QVERIFY(building.Open() && building.NewRecord(0));
    building.SetBuildingName(stored);
    QVERIFY(building.UpdateRecord());
    QCOMPARE(CBuildingTable::GetBuildingIDFromName(sought), found ? building.GetRecordID() : 0u);
}

void TestRecordStore::filterReadsOnlyListedPropertiesAndKeepsTheOthers()
{
    const quint32 course = Records::Course(u"Geology"_s, 0, 0.5);
    CCourseTable table;
    QVERIFY(table.Open() && table.MoveToRecord(course));
    table.SetRoomNumber(u"B12"_s);
    QVERIFY(table.UpdateRecord());
    table.SetFilter(1, CCourseTable::PropCurrentGrade);
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetCurrentGrade(), 0.5);
    QCOMPARE(table.GetRoomNumber(), QString()); // not read
    table.SetCurrentGrade(0.75);
    QVERIFY(table.UpdateRecord());

    table.ClearFilter();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetCurrentGrade(), 0.75);
    QCOMPARE(table.GetRoomNumber(), u"B12"_s);
    QCOMPARE(table.GetCourseName(), u"Geology"_s);
}

void TestRecordStore::missingOrDeletedRecords()
{
    const quint32 course = Records::Course(u"Music"_s);
    CCourseTable first;
    CCourseTable second;
    QVERIFY(first.Open() && second.Open());
    for (quint32 unknown : {0u, 0xFFFFFFFFu, course + 1000})
        QCOMPARE(first.MoveToRecord(unknown), 0);
    QCOMPARE(CCourseTable::GetCourseNameFromID(course + 1000), QString());
    QVERIFY(first.MoveToRecord(course) && second.MoveToRecord(course));
    QVERIFY(first.DeleteRecord(0));
    second.SetCourseName(u"Music II"_s);
    QCOMPARE(second.UpdateRecord(), 0);
    QCOMPARE(second.DeleteRecord(0), 0);
}

void TestRecordStore::semesterCoursesFollowSignedPositions()
{
    // Positions 2, 0, 0, -1 (stored as 0xFFFF): -1 first, the two 0s in stored order.
    const quint32 a = Records::Course(u"A"_s);
    const quint32 b = Records::Course(u"B"_s);
    const quint32 c = Records::Course(u"C"_s);
    const quint32 d = Records::Course(u"D"_s);
    const QHash<quint32, quint16> positions{{a, 2}, {b, 0}, {c, 0}, {d, 0xFFFF}};
    CCourseOrderTable order;
    QVERIFY(order.Open());
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1)) {
        order.SetCoursePosition(positions.value(order.GetCourseID()));
        QVERIFY(order.UpdateRecord());
    }
    QCOMPARE(GetSemesterCourses(0), (std::vector<quint32>{d, b, c, a}));
    QVERIFY(GetSemesterCourses(99).empty());
}

void TestRecordStore::everySortOrderOpensAndSeeks()
{
    // A record of all-default properties in every table is found by a seek of
    // its key in each sort order the table declares; an order it does not
    // have cannot be opened.
    for (const TableDef* def : BrindleSchema::AllTables()) {
        CDataTable table(*def);
        QVERIFY2(table.Open() && table.NewRecord(0) && table.UpdateRecord(), def->name);
        const quint32 id = table.GetRecordID();
        for (quint16 index = 0; index < def->sortOrders.size(); ++index) {
            QVERIFY2(table.Open(index), def->name);
            const int key = def->sortOrders[index];
            CCeDBProp value;
            if (key == RecordIdKey)
                value.SetUInt32(id);
            else if (def->fields[key].type == FieldType::String)
                value.SetString(QString());
            else
                value.SetUInt32(0);
            table.SetSeekValue(&value, CDataTable::SeekValueEqual);
            bool found = false;
            for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
                found = found || table.GetRecordID() == id;
            QVERIFY2(found, qPrintable(u"%1 order %2"_s.arg(QString::fromLatin1(def->name)).arg(index)));
        }
        QCOMPARE(table.Open(quint16(def->sortOrders.size())), 0);
    }
}

void TestRecordStore::nonFiniteNumbersAreStoredAsTheyAre()
{
    // A grade computed from a zero total is not a number; it is kept as computed.
    for (double grade : {qQNaN(), qInf(), -qInf()}) {
        CCourseTable table;
        QVERIFY(table.Open() && table.MoveToRecord(Records::Course(u"Logic"_s, 0, grade)));
        QCOMPARE(std::isnan(table.GetCurrentGrade()), std::isnan(grade));
        if (!std::isnan(grade))
            QCOMPARE(table.GetCurrentGrade(), grade);
    }
}

QTEST_GUILESS_MAIN(TestRecordStore)
#include "tst_recordstore.moc"
