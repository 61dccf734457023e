#include "CourseworkDlgExport.h"

#include "ExportFailureText.h"
#include "controls/Mnemonic.h"
#include "outlook/CourseworkItemExport.h"
#include "outlook/OutlookLinks.h"
#include "outlook/PimLibrary.h"
#include "res/strings/ExportStrings.h"
#include "store/Transaction.h"

#include <QAction>
#include <QMenuBar>

CourseworkDlgExport::CourseworkDlgExport(QObject* parent)
    : QObject(parent), m_app(PimLibrary::OpenConnection())
{
}

CourseworkDlgExport::~CourseworkDlgExport()
{
    if (m_app)
        m_app->Logoff();
}

void CourseworkDlgExport::AddMenu(QMenuBar* bar)
{
    QMenu* menu = bar->addMenu(WithMnemonic(ExportStrings::MenuExport()));
    menu->setObjectName(QStringLiteral("menuExport"));
    m_tasks = menu->addAction(ExportStrings::Tasks());
    m_tasks->setObjectName(QStringLiteral("actionExportTasks"));
    m_tasks->setCheckable(true);
    m_calendar = menu->addAction(ExportStrings::Calendar());
    m_calendar->setObjectName(QStringLiteral("actionExportCalendar"));
    m_calendar->setCheckable(true);
    connect(m_tasks, &QAction::toggled, this, [this](bool on) { m_exportTasks = on; });
    connect(m_calendar, &QAction::toggled, this, [this](bool on) { m_exportCalendar = on; });
}

void CourseworkDlgExport::SetExportTasks(bool on)
{
    m_exportTasks = on;
    if (m_tasks)
        m_tasks->setChecked(on);
}

void CourseworkDlgExport::SetExportCalendar(bool on)
{
    m_exportCalendar = on;
    if (m_calendar)
        m_calendar->setChecked(on);
}

void CourseworkDlgExport::CheckLinks(quint32 courseworkId)
{
    std::vector<OutlookLinks::Link> links;
    if (!OutlookLinks::FindLinks(courseworkId, &links))
        return;
    CTransaction transaction;
    for (const OutlookLinks::Link& link : links) {
        if (link.type != COutlookTable::olTaskItem && link.type != COutlookTable::olAppointmentItem)
            continue;
        // A store that cannot be reached says nothing about the items: a
        // folder on a drive that is not mounted must not cost the links.
        if (m_app && !IsItemInStore(m_app.get(), link.outlookItemId, link.type)) {
            OutlookLinks::DeleteLink(link.outlookItemId);
            continue;
        }
        if (link.type == COutlookTable::olTaskItem) {
            m_taskId = link.outlookItemId;
            SetExportTasks(true);
        } else {
            m_appointmentId = link.outlookItemId;
            SetExportCalendar(true);
        }
    }
    transaction.Commit();
}

QStringList CourseworkDlgExport::Export(quint32 courseworkId)
{
    QStringList failures;
    if (m_exportTasks) {
        const ExportResult result =
            CourseworkItemExport::ExportTask(m_app.get(), courseworkId, &m_taskId);
        if (const QString text = ExportFailureText(result, COutlookTable::olTaskItem);
            !text.isEmpty())
            failures << text;
    } else if (m_taskId != 0) {
        OutlookLinks::DeleteLink(m_taskId);
        m_taskId = 0;
    }
    if (m_exportCalendar) {
        const ExportResult result =
            CourseworkItemExport::ExportAppointment(m_app.get(), courseworkId, &m_appointmentId);
        if (const QString text = ExportFailureText(result, COutlookTable::olAppointmentItem);
            !text.isEmpty())
            failures << text;
    } else if (m_appointmentId != 0) {
        OutlookLinks::DeleteLink(m_appointmentId);
        m_appointmentId = 0;
    }
    return failures;
}
