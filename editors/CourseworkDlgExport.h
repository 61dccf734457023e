#pragma once

#include "outlook/POutlookApp.h"

#include <QObject>
#include <QStringList>

#include <memory>

class QAction;
class QMenuBar;

// The coursework editor's "Export" menu ("Tasks", "Calendar") and what it
// stands for: the connection to the store, opened with the editor and closed
// with it, the two export flags and the items the coursework is linked to.
class CourseworkDlgExport : public QObject
{
    Q_OBJECT

public:
    // Opens the connection; without one every export does nothing.
    explicit CourseworkDlgExport(QObject* parent);
    ~CourseworkDlgExport() override;

    void AddMenu(QMenuBar* bar);

    // Opening: each task or appointment link of the coursework sets its flag
    // while the store still has the item; a link whose item is gone is
    // deleted. Without a connection the links are taken as they are.
    void CheckLinks(quint32 courseworkId);
    // OK, once the coursework is saved and inside the same transaction: each
    // checked kind is exported, an unchecked kind loses its link (the item
    // stays). Returns the failures to show once the save is committed.
    QStringList Export(quint32 courseworkId);

    bool ExportTasks() const { return m_exportTasks; }
    bool ExportCalendar() const { return m_exportCalendar; }
    void SetExportTasks(bool on);
    void SetExportCalendar(bool on);
    quint32 TaskID() const { return m_taskId; }
    quint32 AppointmentID() const { return m_appointmentId; }
    IPOutlookApp* Connection() const { return m_app.get(); }
    QAction* TasksAction() const { return m_tasks; }
    QAction* CalendarAction() const { return m_calendar; }

private:
    std::unique_ptr<IPOutlookApp> m_app;
    bool m_exportTasks = false;
    bool m_exportCalendar = false;
    quint32 m_taskId = 0;        // 0: no task linked
    quint32 m_appointmentId = 0; // 0: no appointment linked
    QAction* m_tasks = nullptr;
    QAction* m_calendar = nullptr;
};
