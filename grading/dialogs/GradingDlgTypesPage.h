#pragma once

#include "GradingDlgEntries.h"

#include <QWidget>

#include <vector>

class CwTypeEditor;
class QGroupBox;
class QPushButton;
class QTreeWidget;

// The "Cw Types" page: the list of type entries and the pane that edits one.
// Shows and collects only; the dialog decides.
class GradingDlgTypesPage : public QWidget
{
    Q_OBJECT

public:
    explicit GradingDlgTypesPage(QWidget* parent = nullptr);

    void Fill(const std::vector<CwTypeEntry>& entries, int selectedRow);
    // -1 when no entry is selected.
    int SelectedRow() const;

    // Opens the pane under the title, or closes it when the title is empty.
    void ShowPane(const QString& title);
    bool PaneOpen() const;

    QTreeWidget* List() const { return m_list; }
    CwTypeEditor* Editor() const { return m_editor; }
    QWidget* Pane() const;
    QPushButton* ApplyButton() const { return m_apply; }
    QPushButton* DiscardButton() const { return m_discard; }

private:
    QTreeWidget* m_list;
    QGroupBox* m_pane;
    CwTypeEditor* m_editor;
    QPushButton* m_apply;
    QPushButton* m_discard;
};
