#pragma once

#include "ListEditPage.h"

#include <vector>

class QLineEdit;

// One building as the buildings editor keeps it until OK.
struct BuildingEntry
{
    quint32 id = 0; // 0: not stored yet
    QString name;
};

// The list of the buildings editor with its in-place "Building Name:" field.
// The entries and the ids of deleted stored buildings belong to the dialog.
class CBuildingListPage : public CListEditPage
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 100;

    CBuildingListPage(std::vector<BuildingEntry>& entries, std::vector<quint32>& removedIds,
                      QWidget* parent = nullptr);

    void Redraw();
    void NewBuilding();
    void EditBuilding(int row);
    void DeleteBuilding(int row);

    QLineEdit* NameEdit() const { return m_name; }

protected:
    void FillMenu(QMenu& menu, int row) override;
    void EditRow(int row) override { EditBuilding(row); }
    void NewRow() override { NewBuilding(); }
    void DeleteRow(int row) override { DeleteBuilding(row); }
    bool ApplyEditor() override;

private:
    int Count() const { return static_cast<int>(m_entries.size()); }

    std::vector<BuildingEntry>& m_entries;
    std::vector<quint32>& m_removedIds;
    QLineEdit* m_name;
    int m_editRow = -1; // -1: a new building
};
