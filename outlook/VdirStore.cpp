#include "VdirStore.h"

#include "VdirAppointment.h"
#include "VdirContact.h"
#include "VdirTask.h"
#include "res/strings/ExportStrings.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace {

// Hidden, so that no client or vdirsyncer takes it for an item.
const QString LastIdFile = QStringLiteral("/.brindle-last-id");

quint32 HighestId(const QString& folder)
{
    quint32 highest = 0;
    const QDir dir(folder);
    for (const QString& name :
         dir.entryList({QStringLiteral("*.ics"), QStringLiteral("*.vcf")}, QDir::Files)) {
        bool numeric = false;
        const quint32 id = QStringView(name).left(name.size() - 4).toUInt(&numeric);
        if (numeric)
            highest = std::max(highest, id);
    }
    QFile last(folder + LastIdFile);
    if (last.open(QIODevice::ReadOnly))
        highest = std::max(highest, last.readAll().trimmed().toUInt());
    return highest;
}

// The displayname file names the collection in the clients; a folder that
// already has one (a user's own collection) keeps it.
int EnsureDisplayName(const QString& folder, const QString& name)
{
    const QString path = folder + QStringLiteral("/displayname");
    if (QFile::exists(path))
        return 1;
    return CVdirStore::WriteAtomically(path, name.toUtf8());
}

} // namespace

CVdirStore::CVdirStore(PimFolders folders) : m_folders(std::move(folders)) {}

int CVdirStore::WriteAtomically(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

int CVdirStore::Logon()
{
    const std::pair<QString, QString> folders[] = {
        {m_folders.tasks, ExportStrings::TasksDisplayName()},
        {m_folders.calendar, ExportStrings::CalendarDisplayName()},
        {m_folders.contacts, ExportStrings::ContactsDisplayName()}};
    for (const auto& [folder, name] : folders) {
        if (!PimFolders::IsUsable(folder) || !EnsureDisplayName(folder, name))
            return 0;
    }
    m_loggedOn = true;
    return 1;
}

void CVdirStore::Logoff()
{
    m_loggedOn = false;
}

QString CVdirStore::FolderOf(COutlookTable::OlItemType type) const
{
    switch (type) {
    case COutlookTable::olTaskItem:
        return m_folders.tasks;
    case COutlookTable::olAppointmentItem:
        return m_folders.calendar;
    case COutlookTable::olContactItem:
        return m_folders.contacts;
    }
    return QString();
}

quint32 CVdirStore::TakeNextId(const QString& folder)
{
    quint32 highest = 0;
    for (const QString& each : {m_folders.tasks, m_folders.calendar, m_folders.contacts})
        highest = std::max(highest, HighestId(each));
    // 0 and 0xFFFFFFFF mean "none" to the links.
    if (highest >= 0xFFFFFFFEu)
        return 0;
    const quint32 id = highest + 1;
    if (!WriteAtomically(folder + LastIdFile, QByteArray::number(id)))
        return 0;
    return id;
}

std::unique_ptr<IPOutlookItem> CVdirStore::CreateItem(COutlookTable::OlItemType type)
{
    const QString folder = FolderOf(type);
    if (!m_loggedOn || folder.isEmpty())
        return nullptr;
    const quint32 id = TakeNextId(folder);
    if (id == 0)
        return nullptr;
    switch (type) {
    case COutlookTable::olTaskItem:
        return CVdirTask::Create(folder, id);
    case COutlookTable::olAppointmentItem:
        return CVdirAppointment::Create(folder, id);
    case COutlookTable::olContactItem:
        return CVdirContact::Create(folder, id);
    }
    return nullptr;
}

std::unique_ptr<IPOutlookItem> CVdirStore::GetItemFromOid(quint32 oid)
{
    if (!m_loggedOn || oid == 0)
        return nullptr;
    // Tasks and appointments may share one collection: the file says which it is.
    if (auto task = CVdirTask::Load(m_folders.tasks, oid))
        return task;
    if (auto appointment = CVdirAppointment::Load(m_folders.calendar, oid))
        return appointment;
    return CVdirContact::Load(m_folders.contacts, oid);
}
