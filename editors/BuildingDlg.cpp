#include "BuildingDlg.h"

#include "BuildingTable.h"
#include "Transaction.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/EditorStrings.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

BuildingDlg::BuildingDlg(QWidget* parent)
    : QDialog(parent), m_page(new CBuildingListPage(m_entries, m_removedIds, this)),
      m_buttons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this))
{
    setObjectName(QStringLiteral("BuildingDlg"));
    setWindowTitle(EditorStrings::BuildingsTitle());
    m_buttons->setObjectName(QStringLiteral("buttons"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &BuildingDlg::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &BuildingDlg::reject);
    connect(m_page, &CListEditPage::EditorOpenChanged, this, &BuildingDlg::SetEditorOpen);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_page, 1);
    layout->addWidget(m_buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 22, line * 24);

    OnInitDialog();
}

void BuildingDlg::OnInitDialog()
{
    m_entries.clear();
    m_removedIds.clear();
    CBuildingTable buildings;
    if (buildings.Open()) {
        for (int ok = buildings.MoveFirst(1); ok; ok = buildings.MoveNext(1))
            m_entries.push_back({buildings.GetRecordID(), buildings.GetBuildingName()});
    }
    m_page->Redraw();
}

void BuildingDlg::SetEditorOpen(bool open)
{
    m_buttons->setEnabled(!open);
    if (!open)
        m_buttons->button(QDialogButtonBox::Ok)->setDefault(true);
}

bool BuildingDlg::OnOK()
{
    if (m_page->IsEditorOpen() && !m_page->FinishEditor(true))
        return false;
    CTransaction transaction;
    CBuildingTable buildings;
    if (!buildings.Open())
        return false;
    for (quint32 id : m_removedIds) {
        if (buildings.MoveToRecord(id))
            buildings.DeleteRecord(0);
    }
    for (const BuildingEntry& entry : m_entries) {
        if (entry.id == 0 || !buildings.MoveToRecord(entry.id))
            buildings.NewRecord(0);
        buildings.SetBuildingName(entry.name);
        buildings.UpdateRecord();
    }
    if (!transaction.Commit()) {
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    return true;
}

void BuildingDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}
