#include "Records.h"

#include "BrindleData.h"

#include <sqlite3.h>

namespace Records {

quint32 Course(const QString& name, quint32 semesterId, double currentGrade)
{
    CCourseTable course;
    course.Open();
    course.NewRecord(0);
    course.SetCourseName(name);
    course.SetCurrentGrade(currentGrade);
    course.UpdateRecord();
    const quint32 id = course.GetRecordID();

    CCourseOrderTable order;
    order.Open();
    const quint16 position = order.GetRecordCount();
    order.NewRecord(0);
    order.SetSemesterID(semesterId);
    order.SetCourseID(id);
    order.SetCoursePosition(position);
    order.UpdateRecord();
    return id;
}

quint32 CwType(quint32 courseId, const QString& name, double weight, quint16 drops, qint16 position)
{
    CCwTypeTable type;
    type.Open();
    type.NewRecord(0);
    type.SetCourseID(courseId);
    type.SetCwTypeName(name);
    type.SetWeight(weight);
    type.SetDrops(drops);
    type.UpdateRecord();
    const quint32 id = type.GetRecordID();

    CCwTypeOrderTable order;
    order.Open();
    if (position < 0) {
        position = 0;
        order.Close();
        order.Open(1);
        const CCeDBProp key(courseId);
        order.SetSeekValue(&key, CDataTable::SeekValueEqual);
        for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
            ++position;
    }
    order.NewRecord(0);
    order.SetCourseID(courseId);
    order.SetCwTypeID(id);
    order.SetCwTypePosition(position);
    order.UpdateRecord();
    return id;
}

quint32 Coursework(quint32 courseId, quint32 cwTypeId, const QString& name, double score,
                   double possible, double dueDate, quint16 completed, double weight)
{
    CCourseworkTable item;
    item.Open();
    item.NewRecord(0);
    item.SetCourseID(courseId);
    item.SetCwTypeID(cwTypeId);
    item.SetCourseworkName(name);
    item.SetScore(score);
    item.SetPossible(possible);
    item.SetDueDate(dueDate);
    item.SetCompleted(completed);
    item.SetWeight(weight);
    item.UpdateRecord();
    return item.GetRecordID();
}

void Policy(quint32 courseId, quint32 weighting)
{
    CGradingPolicyTable policy;
    policy.Open();
    policy.NewRecord(0);
    policy.SetCourseID(courseId);
    policy.SetWeightType(static_cast<CGradingPolicyTable::Weighting>(weighting));
    policy.UpdateRecord();
}

void MinimumPercent(quint32 courseId, quint16 grade, double minimum)
{
    CGradingPolicyGradeTable row;
    row.Open();
    row.NewRecord(0);
    row.SetCourseID(courseId);
    row.SetGrade(grade);
    row.SetMinimumPercent(minimum);
    row.UpdateRecord();
}

quint32 Semester(const QString& name)
{
    CSemesterTable semester;
    semester.Open();
    semester.NewRecord(0);
    semester.SetSemesterName(name);
    semester.UpdateRecord();
    return semester.GetRecordID();
}

int Count(const char* table)
{
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(QByteArray("SELECT count(*) FROM ") + table);
    if (!stmt)
        return -1;
    const int count = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : -1;
    sqlite3_reset(stmt);
    return count;
}

} // namespace Records
