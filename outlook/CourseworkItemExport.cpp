#include "CourseworkItemExport.h"

#include "store/CourseTable.h"
#include "store/CourseworkTable.h"
#include "store/DateEncoding.h"

namespace {

struct CourseworkFields
{
    QString name;
    QString details;
    QString courseName;
    double dueDate = 0.0;
    quint16 completed = 0;
};

bool ReadCoursework(quint32 courseworkId, CourseworkFields* fields)
{
    CCourseworkTable coursework;
    if (!coursework.Open() || !coursework.MoveToRecord(courseworkId))
        return false;
    fields->name = coursework.GetCourseworkName();
    fields->details = coursework.GetDetails();
    fields->courseName = CCourseTable::GetCourseNameFromID(coursework.GetCourseID());
    fields->dueDate = coursework.GetDueDate();
    fields->completed = coursework.GetCompleted();
    return true;
}

} // namespace

namespace CourseworkItemExport {

ExportResult ExportTask(IPOutlookApp* app, quint32 courseworkId, quint32* taskId)
{
    if (!app)
        return ExportResult::NoStore;
    CourseworkFields fields;
    if (!ReadCoursework(courseworkId, &fields))
        return *taskId ? ExportResult::UpdateFailed : ExportResult::CreateFailed;
    return ExportItem(app, courseworkId, COutlookTable::olTaskItem, taskId,
                      [&](IPOutlookItem& item) {
                          ITask* task = item.AsTask();
                          task->put_Subject(fields.name);
                          task->put_Body(fields.details);
                          task->put_Categories(fields.courseName);
                          task->put_DueDate(fields.dueDate);
                          task->put_Complete(fields.completed >= 100);
                      });
}

ExportResult ExportAppointment(IPOutlookApp* app, quint32 courseworkId, quint32* appointmentId)
{
    if (!app)
        return ExportResult::NoStore;
    CourseworkFields fields;
    if (!ReadCoursework(courseworkId, &fields))
        return *appointmentId ? ExportResult::UpdateFailed : ExportResult::CreateFailed;
    return ExportItem(app, courseworkId, COutlookTable::olAppointmentItem, appointmentId,
                      [&](IPOutlookItem& item) {
                          IAppointment* appointment = item.AsAppointment();
                          // Midnight of the due day, start and end: the whole day.
                          const double day = BrindleDate::WholeDays(fields.dueDate);
                          appointment->put_Subject(fields.name);
                          appointment->put_Categories(fields.courseName);
                          appointment->put_Start(day);
                          appointment->put_End(day);
                          appointment->put_Body(fields.details);
                          appointment->put_AllDayEvent(true);
                      });
}

} // namespace CourseworkItemExport
