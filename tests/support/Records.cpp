#include "Records.h"

#include "BrindleData.h"
#include "DatabaseFiles.h"

namespace Records {

namespace {

// Writes one new record of the table, filled in by `fill`, and returns its id.
template <typename Table, typename Fill> quint32 Write(Fill fill)
{
    Table table;
    table.Open();
    table.NewRecord(0);
    fill(table);
    table.UpdateRecord();
    return table.GetRecordID();
}

} // namespace

quint32 Course(const QString& name, quint32 semesterId, double currentGrade)
{
    const quint32 id = Write<CCourseTable>([&](CCourseTable& course) {
        course.SetCourseName(name);
        course.SetCurrentGrade(currentGrade);
    });
    Write<CCourseOrderTable>([&](CCourseOrderTable& order) {
        order.SetSemesterID(semesterId);
        order.SetCourseID(id);
        order.SetCoursePosition(order.GetRecordCount());
    });
    return id;
}

quint32 CwType(quint32 courseId, const QString& name, double weight, quint16 drops, qint16 position)
{
    const quint32 id = Write<CCwTypeTable>([&](CCwTypeTable& type) {
        type.SetCourseID(courseId);
        type.SetCwTypeName(name);
        type.SetWeight(weight);
        type.SetDrops(drops);
    });
    if (position < 0) // after the course's other types
        position = qint16(CDataTable::GetMount()->Scalar(
            "SELECT count(*) FROM CwTypeOrder WHERE CourseID = " + QByteArray::number(courseId)));
    Write<CCwTypeOrderTable>([&](CCwTypeOrderTable& order) {
        order.SetCourseID(courseId);
        order.SetCwTypeID(id);
        order.SetCwTypePosition(position);
    });
    return id;
}

quint32 Coursework(quint32 courseId, quint32 cwTypeId, const QString& name, double score,
                   double possible, double dueDate, quint16 completed, double weight)
{
    return Write<CCourseworkTable>([&](CCourseworkTable& item) {
        item.SetCourseID(courseId);
        item.SetCwTypeID(cwTypeId);
        item.SetCourseworkName(name);
        item.SetScore(score);
        item.SetPossible(possible);
        item.SetDueDate(dueDate);
        item.SetCompleted(completed);
        item.SetWeight(weight);
    });
}

void Policy(quint32 courseId, quint32 weighting)
{
    Write<CGradingPolicyTable>([&](CGradingPolicyTable& policy) {
        policy.SetCourseID(courseId);
        policy.SetWeightType(static_cast<CGradingPolicyTable::Weighting>(weighting));
    });
}

void MinimumPercent(quint32 courseId, quint16 grade, double minimum)
{
    Write<CGradingPolicyGradeTable>([&](CGradingPolicyGradeTable& row) {
        row.SetCourseID(courseId);
        row.SetGrade(grade);
        row.SetMinimumPercent(minimum);
    });
}

quint32 Semester(const QString& name)
{
    return Write<CSemesterTable>([&](CSemesterTable& semester) { semester.SetSemesterName(name); });
}

int Count(const char* table)
{
    sqlite3_stmt* stmt =
        CDataTable::GetMount()->Statement(QByteArray("SELECT count(*) FROM ") + table);
    if (!stmt)
        return -1;
    const int count = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : -1;
    sqlite3_reset(stmt);
    return count;
}

QStringList Rows(const QByteArray& sql)
{
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(sql);
    const QStringList rows = DatabaseFiles::StepRows(stmt);
    if (stmt)
        sqlite3_reset(stmt);
    return rows;
}

} // namespace Records
