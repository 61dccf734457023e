#pragma once

#include "BuildingListPage.h"

#include <QDialog>

#include <vector>

class QDialogButtonBox;

// "Buildings": the building names the course and instructors editors offer.
// Courses and instructors refer to a building by id, so a rename reaches
// them all; a deleted building leaves their id as it was.
class BuildingDlg : public QDialog
{
    Q_OBJECT

public:
    explicit BuildingDlg(QWidget* parent = nullptr);

    // The opening (run by the constructor) and OK steps; Cancel writes nothing.
    void OnInitDialog();
    bool OnOK();

    const std::vector<BuildingEntry>& Entries() const { return m_entries; }
    CBuildingListPage* Page() const { return m_page; }

public slots:
    void accept() override;

private:
    void SetEditorOpen(bool open);

    std::vector<BuildingEntry> m_entries;
    std::vector<quint32> m_removedIds;
    CBuildingListPage* m_page;
    QDialogButtonBox* m_buttons;
};
