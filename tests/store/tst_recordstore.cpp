// The record store: seeks, orders, deletes inside a walk, record ids, filters.
#include "BrindleData.h"
#include "Schema.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

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

    void seekWithoutMatchNeverPositions();
    void equalKeysComeInRecordIdOrder();
    void deleteInsideSeekLoopRemovesWholeRange();
    void moveNextAfterDeleteContinuesWithFollower();
    void stringKeysSeekCaseInsensitively_data();
    void stringKeysSeekCaseInsensitively();
    void stringKeysSortCaseInsensitively();
    void recordIdsAreUniqueAcrossTablesAndNeverReused();
    void moveToUnknownRecordFails();
    void filterReadsOnlyListedPropertiesAndKeepsTheOthers();
    void updateOfDeletedRecordFails();
    void semesterCoursesFollowSignedPositions();
    void newRecordsStartWithTheirDefaults();
    void everySortOrderOpensAndSeeks();
    void nonFiniteNumbersAreStoredAsTheyAre_data();
    void nonFiniteNumbersAreStoredAsTheyAre();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestRecordStore::seekWithoutMatchNeverPositions()
{
    Records::Course(QStringLiteral("Biology"));
    CCourseOrderTable order;
    QVERIFY(order.Open(2));
    const CCeDBProp key(quint32(4711));
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QCOMPARE(order.MoveFirst(1), 0);
    QCOMPARE(order.MoveNext(1), 0);
}

void TestRecordStore::equalKeysComeInRecordIdOrder()
{
    const quint32 course = Records::Course(QStringLiteral("Chemistry"));
    QList<quint32> made;
    for (int i = 0; i < 5; ++i)
        made << Records::Coursework(course, 0, QStringLiteral("Lab %1").arg(i));

    CCourseworkTable table;
    QVERIFY(table.Open(0));
    const CCeDBProp key(course);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QList<quint32> seen;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        seen << table.GetRecordID();
    QCOMPARE(seen, made);
}

void TestRecordStore::deleteInsideSeekLoopRemovesWholeRange()
{
    const quint32 keep = Records::Course(QStringLiteral("Keep"));
    const quint32 drop = Records::Course(QStringLiteral("Drop"));
    for (int i = 0; i < 4; ++i) {
        Records::Coursework(drop, 0, QStringLiteral("d%1").arg(i));
        Records::Coursework(keep, 0, QStringLiteral("k%1").arg(i));
    }
    CCourseworkTable table;
    QVERIFY(table.Open(1));
    const CCeDBProp key(drop);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    int deleted = 0;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        deleted += table.DeleteRecord(0);
    QCOMPARE(deleted, 4);
    QCOMPARE(table.MoveFirst(1), 0);
    QCOMPARE(Records::Count("Coursework"), 4);
}

void TestRecordStore::moveNextAfterDeleteContinuesWithFollower()
{
    const quint32 course = Records::Course(QStringLiteral("Physics"));
    const quint32 first = Records::Coursework(course, 0, QStringLiteral("a"));
    const quint32 second = Records::Coursework(course, 0, QStringLiteral("b"));
    const quint32 third = Records::Coursework(course, 0, QStringLiteral("c"));

    CCourseworkTable table;
    QVERIFY(table.Open(1));
    const CCeDBProp key(course);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QVERIFY(table.MoveFirst(1));
    QCOMPARE(table.GetRecordID(), first);
    QVERIFY(table.MoveNext(1));
    QCOMPARE(table.GetRecordID(), second);
    QVERIFY(table.DeleteRecord(0));
    QVERIFY(table.MoveNext(1));
    QCOMPARE(table.GetRecordID(), third);
    QCOMPARE(table.GetCourseworkName(), QStringLiteral("c"));
}

void TestRecordStore::stringKeysSeekCaseInsensitively_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("sought");
    QTest::addColumn<bool>("found");
    QTest::newRow("ascii case") << u"Calculus II"_s << u"CALCULUS ii"_s << true;
    QTest::newRow("accented") << u"Études Françaises"_s << u"ÉTUDES FRANÇAISES"_s << true;
    QTest::newRow("different") << u"Calculus II"_s << u"Calculus III"_s << false;
    QTest::newRow("trailing blank differs") << u"Art"_s << u"Art "_s << false;
}

void TestRecordStore::stringKeysSeekCaseInsensitively()
{
    QFETCH(QString, stored);
    QFETCH(QString, sought);
    QFETCH(bool, found);
    const quint32 id = Records::Course(stored);

    CCourseTable table;
    QVERIFY(table.Open(0));
    const CCeDBProp key(sought);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QCOMPARE(table.MoveFirst(1) != 0, found);
    if (found)
        QCOMPARE(table.GetRecordID(), id);

    CBuildingTable building;
    QVERIFY(building.Open());
    building.NewRecord(0);
    building.SetBuildingName(stored);
    QVERIFY(building.UpdateRecord());
    QCOMPARE(CBuildingTable::GetBuildingIDFromName(sought), found ? building.GetRecordID() : 0u);
}

void TestRecordStore::stringKeysSortCaseInsensitively()
{
    for (const char* name : {"delta", "Bravo", "alpha", "Charlie"})
        Records::Course(QString::fromLatin1(name));
    CCourseTable table;
    QVERIFY(table.Open(0));
    QStringList names;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        names << table.GetCourseName();
    QCOMPARE(names, QStringList({u"alpha"_s, u"Bravo"_s, u"Charlie"_s, u"delta"_s}));
}

void TestRecordStore::recordIdsAreUniqueAcrossTablesAndNeverReused()
{
    QSet<quint32> ids;
    // The default records of a new database already hold ids.
    for (const char* table : {"AppState", "GPAInfo", "ViewTab", "GradeScale"})
        QVERIFY(Records::Count(table) > 0);
    const quint32 course = Records::Course(QStringLiteral("Math"));
    const quint32 type = Records::CwType(course, QStringLiteral("Homework"));
    const quint32 item = Records::Coursework(course, type, QStringLiteral("Set 1"));
    const quint32 semester = Records::Semester(QStringLiteral("Fall 2025"));
    for (quint32 id : {course, type, item, semester}) {
        QVERIFY(id != 0 && id != 0xFFFFFFFF);
        QVERIFY2(!ids.contains(id), "an id was handed out twice");
        ids.insert(id);
    }

    CCourseworkTable table;
    QVERIFY(table.Open());
    QVERIFY(table.MoveToRecord(item));
    QVERIFY(table.DeleteRecord(0));
    const quint32 next = Records::Coursework(course, type, QStringLiteral("Set 2"));
    QVERIFY(next > item);

    // A restart keeps counting from where it was.
    QVERIFY(m_db->Reopen());
    QVERIFY(Records::Semester(QStringLiteral("Spring 2026")) > next);
}

void TestRecordStore::moveToUnknownRecordFails()
{
    const quint32 course = Records::Course(QStringLiteral("History"));
    CCourseTable table;
    QVERIFY(table.Open());
    QVERIFY(table.MoveToRecord(course));
    for (quint32 unknown : {0u, 0xFFFFFFFFu, course + 1000})
        QCOMPARE(table.MoveToRecord(unknown), 0);
    QCOMPARE(CCourseTable::GetCourseNameFromID(course + 1000), QString());
}

void TestRecordStore::filterReadsOnlyListedPropertiesAndKeepsTheOthers()
{
    const quint32 course = Records::Course(QStringLiteral("Geology"), 0, 0.5);
    {
        CCourseTable table;
        QVERIFY(table.Open());
        QVERIFY(table.MoveToRecord(course));
        table.SetRoomNumber(QStringLiteral("B12"));
        table.SetCourseHours(3.0);
        QVERIFY(table.UpdateRecord());
    }
    CCourseTable table;
    QVERIFY(table.Open());
    table.SetFilter(1, CCourseTable::PropCurrentGrade);
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetCurrentGrade(), 0.5);
    QCOMPARE(table.GetRoomNumber(), QString()); // not read
    table.SetCurrentGrade(0.75);
    QVERIFY(table.UpdateRecord());

    table.ClearFilter();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetCurrentGrade(), 0.75);
    QCOMPARE(table.GetRoomNumber(), QStringLiteral("B12"));
    QCOMPARE(table.GetCourseHours(), 3.0);
    QCOMPARE(table.GetCourseName(), QStringLiteral("Geology"));
}

void TestRecordStore::updateOfDeletedRecordFails()
{
    const quint32 course = Records::Course(QStringLiteral("Music"));
    CCourseTable first;
    CCourseTable second;
    QVERIFY(first.Open() && second.Open());
    QVERIFY(first.MoveToRecord(course) && second.MoveToRecord(course));
    QVERIFY(first.DeleteRecord(0));
    second.SetCourseName(QStringLiteral("Music II"));
    QCOMPARE(second.UpdateRecord(), 0);
    QCOMPARE(second.DeleteRecord(0), 0);
}

void TestRecordStore::semesterCoursesFollowSignedPositions()
{
    // Positions 2, 0, 0, -1 (stored as 0xFFFF): -1 first, the two 0s in stored order.
    const quint32 a = Records::Course(QStringLiteral("A"));
    const quint32 b = Records::Course(QStringLiteral("B"));
    const quint32 c = Records::Course(QStringLiteral("C"));
    const quint32 d = Records::Course(QStringLiteral("D"));
    const QHash<quint32, quint16> positions{{a, 2}, {b, 0}, {c, 0}, {d, 0xFFFF}};
    CCourseOrderTable order;
    QVERIFY(order.Open());
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1)) {
        order.SetCoursePosition(positions.value(order.GetCourseID()));
        QVERIFY(order.UpdateRecord());
    }
    const std::vector<quint32> expected{d, b, c, a};
    QCOMPARE(GetSemesterCourses(0), expected);
    QVERIFY(GetSemesterCourses(99).empty());
}

void TestRecordStore::newRecordsStartWithTheirDefaults()
{
    CCourseTable course;
    QVERIFY(course.Open());
    QVERIFY(course.NewRecord(0));
    QVERIFY(course.UpdateRecord());
    QCOMPARE(course.GetCurrentGrade(), -1.0);
    QVERIFY(course.GetCourseHours() < 0.0);

    CCourseworkTable item;
    QVERIFY(item.Open());
    QVERIFY(item.NewRecord(0));
    QVERIFY(item.UpdateRecord());
    QVERIFY(item.MoveToRecord(item.GetRecordID()));
    QCOMPARE(item.GetScore(), -1.0);
    QCOMPARE(item.GetPossible(), -1.0);
    QCOMPARE(item.GetCompleted(), quint16(0));
}

void TestRecordStore::everySortOrderOpensAndSeeks()
{
    // A record of all-default properties in every table is found by a seek
    // of its key in each sort order the table declares; an order it does not
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
            QVERIFY2(
                found,
                qPrintable(u"%1 sort order %2"_s.arg(QString::fromLatin1(def->name)).arg(index)));
        }
        QCOMPARE(table.Open(quint16(def->sortOrders.size())), 0);
    }
}

void TestRecordStore::nonFiniteNumbersAreStoredAsTheyAre_data()
{
    QTest::addColumn<double>("grade");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinity") << -std::numeric_limits<double>::infinity();
}

void TestRecordStore::nonFiniteNumbersAreStoredAsTheyAre()
{
    // A grade computed from a zero total is not a number; it is kept as computed.
    QFETCH(double, grade);
    const quint32 course = Records::Course(u"Logic"_s, 0, grade);
    CCourseTable table;
    QVERIFY(table.Open());
    QVERIFY(table.MoveToRecord(course));
    if (std::isnan(grade))
        QVERIFY(std::isnan(table.GetCurrentGrade()));
    else
        QCOMPARE(table.GetCurrentGrade(), grade);
}

QTEST_GUILESS_MAIN(TestRecordStore)
#include "tst_recordstore.moc"
