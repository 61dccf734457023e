#pragma once

// Builders and probes shared by the course-record editor tests.

#include "store/BrindleData.h"
#include "store/Schema.h"

#include <QStringList>

#include <sqlite3.h>

namespace EditorRecords {

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

inline quint32 Building(const QString& name)
{
    CBuildingTable table;
    table.Open();
    table.NewRecord(0);
    table.SetBuildingName(name);
    table.UpdateRecord();
    return table.GetRecordID();
}

inline quint32 Instructor(const QString& name)
{
    CInstructorTable table;
    table.Open();
    table.NewRecord(0);
    table.SetInstructorName(name);
    table.UpdateRecord();
    return table.GetRecordID();
}

inline quint32 Link(quint32 courseId, quint32 instructorId)
{
    CCourseInstructorTable table;
    table.Open();
    table.NewRecord(0);
    table.SetCourseID(courseId);
    table.SetInstructorID(instructorId);
    table.UpdateRecord();
    return table.GetRecordID();
}

inline quint32 Time(quint32 foreignId, quint16 days, double start = 0.4, double end = 0.45)
{
    CTimeTable table;
    table.Open();
    table.NewRecord(0);
    table.SetForeignRecordID(foreignId);
    table.SetDayOfWeek(days);
    table.SetStartTime(start);
    table.SetEndTime(end);
    table.UpdateRecord();
    return table.GetRecordID();
}

// A textbook with its order row at the position.
inline quint32 Textbook(quint32 courseId, const QString& name, quint16 position)
{
    CTextbookTable table;
    table.Open();
    table.NewRecord(0);
    table.SetCourseID(courseId);
    table.SetTextbookName(name);
    table.UpdateRecord();
    const quint32 id = table.GetRecordID();
    CTextbookOrderTable order;
    order.Open();
    order.NewRecord(0);
    order.SetCourseID(courseId);
    order.SetTextbookID(id);
    order.SetTextbookPosition(position);
    order.UpdateRecord();
    return id;
}

inline quint32 OutlookLink(quint32 brindleId, quint32 outlookId, COutlookTable::OlItemType type)
{
    COutlookTable table;
    table.Open();
    table.NewRecord(0);
    table.SetBrindleItemID(brindleId);
    table.SetOutlookItemID(outlookId);
    table.SetItemType(type);
    table.UpdateRecord();
    return table.GetRecordID();
}

// How many rows of the table have this value in the column.
inline int CountWhere(const char* table, const char* column, quint32 value)
{
    sqlite3_stmt* stmt =
        CDataTable::GetMount()->Statement(QByteArray("SELECT count(*) FROM ") + table + " WHERE " +
                                          column + " = " + QByteArray::number(value));
    if (!stmt)
        return -1;
    const int count = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : -1;
    sqlite3_reset(stmt);
    return count;
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

} // namespace EditorRecords
