#include "InstructorDlgExport.h"

#include "ExportFailureText.h"
#include "InstructorDlg.h"
#include "controls/Mnemonic.h"
#include "outlook/ContactExport.h"
#include "outlook/OutlookLinks.h"
#include "outlook/PimLibrary.h"
#include "res/strings/ExportStrings.h"
#include "store/Transaction.h"

#include <QAction>
#include <QMenuBar>

InstructorDlgExport::InstructorDlgExport(QObject* parent)
    : QObject(parent), m_app(PimLibrary::OpenConnection())
{
}

InstructorDlgExport::~InstructorDlgExport()
{
    if (m_app)
        m_app->Logoff();
}

QAction* InstructorDlgExport::AddMenu(QMenuBar* bar)
{
    QMenu* menu = bar->addMenu(WithMnemonic(ExportStrings::MenuExport()));
    menu->setObjectName(QStringLiteral("menuExport"));
    QAction* contacts = menu->addAction(ExportStrings::Contacts());
    contacts->setObjectName(QStringLiteral("actionExportContacts"));
    contacts->setCheckable(true);
    return contacts;
}

void InstructorDlgExport::CheckLink(InstructorEntry& entry)
{
    entry.exportContact = false;
    entry.contactId = 0;
    std::vector<OutlookLinks::Link> links;
    if (!OutlookLinks::FindLinks(entry.id, &links) || links.empty())
        return;
    const OutlookLinks::Link& link = links.front();
    if (m_app && !IsItemInStore(m_app.get(), link.outlookItemId, COutlookTable::olContactItem)) {
        CTransaction transaction;
        if (OutlookLinks::DeleteLink(link.outlookItemId))
            transaction.Commit();
        return;
    }
    entry.contactId = link.outlookItemId;
    entry.exportContact = true;
}

QString InstructorDlgExport::Export(quint32 instructorId, InstructorEntry& entry)
{
    if (!entry.exportContact) {
        if (entry.contactId != 0)
            OutlookLinks::DeleteLink(entry.contactId);
        entry.contactId = 0;
        return QString();
    }
    ContactExport::Instructor instructor{entry.name,       entry.phone,        entry.email,
                                         entry.roomNumber, entry.buildingName, {}};
    for (const ClassTimeEntry& hours : entry.officeHours)
        instructor.officeHours.push_back({hours.days, hours.start, hours.end});
    const ExportResult result =
        ContactExport::ExportContact(m_app.get(), instructorId, instructor, &entry.contactId);
    if (result == ExportResult::LinkDropped)
        entry.exportContact = false;
    return ExportFailureText(result, COutlookTable::olContactItem);
}
