#include "BuildingListPage.h"

#include "res/strings/EditorStrings.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QVBoxLayout>

CBuildingListPage::CBuildingListPage(std::vector<BuildingEntry>& entries,
                                     std::vector<quint32>& removedIds, QWidget* parent)
    : CListEditPage(EditorStrings::BuildingsHint(), QStringLiteral(":/images/buildings.svg"),
                    parent),
      m_entries(entries), m_removedIds(removedIds), m_name(new QLineEdit(this))
{
    List()->setObjectName(QStringLiteral("buildingList"));
    m_name->setObjectName(QStringLiteral("buildingName"));
    m_name->setMaxLength(NameLimit);

    auto* editor = new QWidget(this);
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(EditorStrings::BuildingNameCaption(), editor);
    caption->setBuddy(m_name);
    layout->addWidget(caption);
    layout->addWidget(m_name);
    SetEditor(editor);
}

void CBuildingListPage::Redraw()
{
    const int selected = SelectedRow();
    List()->clear();
    for (const BuildingEntry& entry : m_entries)
        List()->addItem(entry.name);
    if (selected >= 0 && selected < Count())
        SelectRow(selected);
}

void CBuildingListPage::NewBuilding()
{
    m_editRow = -1;
    m_name->clear();
    OpenEditor();
}

void CBuildingListPage::EditBuilding(int row)
{
    if (row < 0 || row >= Count())
        return;
    SelectRow(row);
    m_editRow = row;
    m_name->setText(m_entries[static_cast<size_t>(row)].name);
    OpenEditor();
}

void CBuildingListPage::DeleteBuilding(int row)
{
    if (row < 0 || row >= Count())
        return;
    const auto at = m_entries.begin() + row;
    if (at->id != 0)
        m_removedIds.push_back(at->id);
    m_entries.erase(at);
    Redraw();
}

bool CBuildingListPage::ApplyEditor()
{
    if (m_editRow < 0) {
        m_entries.push_back({0, m_name->text()});
        m_editRow = Count() - 1;
    } else if (m_editRow < Count()) {
        m_entries[static_cast<size_t>(m_editRow)].name = m_name->text();
    }
    Redraw();
    SelectRow(m_editRow);
    return true;
}

void CBuildingListPage::FillMenu(QMenu& menu, int row)
{
    menu.addAction(EditorStrings::NewBuilding(), this, &CBuildingListPage::NewBuilding);
    if (row < 0)
        return;
    menu.addAction(EditorStrings::EditBuilding(), this, [this, row] { EditBuilding(row); });
    menu.addAction(EditorStrings::DeleteBuilding(), this, [this, row] { DeleteBuilding(row); });
}
