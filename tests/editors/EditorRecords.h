#pragma once

// Builders and probes shared by the course-record editor and export tests.

#include "store/BrindleData.h"
#include "store/Schema.h"

#include <QStringList>

#include <sqlite3.h>

namespace EditorRecords {

// Writes one new record of the table, filled by `fill`, and returns its id.
template <typename Table, typename Fill> quint32 Insert(Fill fill)
{
    Table table;
    table.Open();
    table.NewRecord(0);
    fill(table);
    table.UpdateRecord();
    return table.GetRecordID();
}

// Every row of every table as text, to prove that nothing was written.
inline QStringList DumpAll()
{
    QStringList rows;
    for (const TableDef* table : BrindleSchema::AllTables()) {
        sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(QByteArray("SELECT * FROM ") +
                                                               table->name + " ORDER BY id");
        while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
            QStringList columns{QString::fromLatin1(table->name)};
            for (int i = 0; i < sqlite3_column_count(stmt); ++i)
                columns << QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)));
            rows << columns.join(QLatin1Char('|'));
        }
        if (stmt)
            sqlite3_reset(stmt);
    }
    return rows;
}

// Runs one SQL statement and returns the first column of its first row as
// text: set-ups and probes that need no table class.
inline QString Sql(const QByteArray& sql)
{
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(sql);
    if (!stmt)
        return QStringLiteral("(error)");
    QString value;
    if (sqlite3_step(stmt) == SQLITE_ROW)
        value = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    sqlite3_reset(stmt);
    return value;
}

// How many rows of the table have this value in the column; -1: unreadable.
inline int CountWhere(const char* table, const char* column, quint32 value)
{
    bool ok = false;
    const int count = Sql(QByteArray("SELECT count(*) FROM ") + table + " WHERE " + column + " = " +
                          QByteArray::number(value))
                          .toInt(&ok);
    return ok ? count : -1;
}

inline quint32 Building(const QString& name)
{
    return Insert<CBuildingTable>([&](CBuildingTable& t) { t.SetBuildingName(name); });
}

inline quint32 Instructor(const QString& name)
{
    return Insert<CInstructorTable>([&](CInstructorTable& t) { t.SetInstructorName(name); });
}

inline quint32 Link(quint32 courseId, quint32 instructorId)
{
    return Insert<CCourseInstructorTable>([&](CCourseInstructorTable& t) {
        t.SetCourseID(courseId);
        t.SetInstructorID(instructorId);
    });
}

inline quint32 Time(quint32 foreignId, quint16 days, double start = 0.4, double end = 0.45)
{
    return Insert<CTimeTable>([&](CTimeTable& t) {
        t.SetForeignRecordID(foreignId);
        t.SetDayOfWeek(days);
        t.SetStartTime(start);
        t.SetEndTime(end);
    });
}

// A textbook with its order row at the position.
inline quint32 Textbook(quint32 courseId, const QString& name, quint16 position)
{
    const quint32 id = Insert<CTextbookTable>([&](CTextbookTable& t) {
        t.SetCourseID(courseId);
        t.SetTextbookName(name);
    });
    Insert<CTextbookOrderTable>([&](CTextbookOrderTable& t) {
        t.SetCourseID(courseId);
        t.SetTextbookID(id);
        t.SetTextbookPosition(position);
    });
    return id;
}

inline quint32 OutlookLink(quint32 brindleId, quint32 outlookId, COutlookTable::OlItemType type)
{
    return Insert<COutlookTable>([&](COutlookTable& t) {
        t.SetBrindleItemID(brindleId);
        t.SetOutlookItemID(outlookId);
        t.SetItemType(type);
    });
}

} // namespace EditorRecords
