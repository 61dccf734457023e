#pragma once

#include "POutlookApp.h"
#include "PimFolders.h"

// The personal-information store as vdir folders, one per kind, that khal,
// todoman, khard and vdirsyncer read: one file per item, named after its
// numeric id (17.ics, 18.vcf). A missing file means the user deleted the item.
// Ids are unique across the three folders and never given twice: besides the
// files, each folder remembers the last id it gave out.
class CVdirStore : public IPOutlookApp
{
public:
    explicit CVdirStore(PimFolders folders);

    int Logon() override;
    void Logoff() override;
    std::unique_ptr<IPOutlookItem> CreateItem(COutlookTable::OlItemType type) override;
    std::unique_ptr<IPOutlookItem> GetItemFromOid(quint32 oid) override;

    const PimFolders& Folders() const { return m_folders; }

    // Writes the bytes to the path through a temporary file and a rename, so
    // that a reader never sees half an item. Nonzero on success.
    static int WriteAtomically(const QString& path, const QByteArray& bytes);

private:
    QString FolderOf(COutlookTable::OlItemType type) const;
    // The next id: one past the highest id any folder holds or has given out;
    // 0 when it cannot be recorded.
    quint32 TakeNextId(const QString& folder);

    PimFolders m_folders;
    bool m_loggedOn = false;
};
