#pragma once

#include "ItemExport.h"

// A coursework as a task (due date and completion) and as an all-day
// appointment on its due day. Both read the stored coursework record, so
// they run after it was saved.
namespace CourseworkItemExport {

ExportResult ExportTask(IPOutlookApp* app, quint32 courseworkId, quint32* taskId);
ExportResult ExportAppointment(IPOutlookApp* app, quint32 courseworkId, quint32* appointmentId);

} // namespace CourseworkItemExport
