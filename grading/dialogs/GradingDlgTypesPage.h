#pragma once

#include "GradingDlgEntries.h"
#include "GradingDlgListPage.h"

#include <vector>

class CwTypeEditor;

// The "Cw Types" page: the list of type entries and the pane that edits one.
// Shows and collects only; the dialog decides.
class GradingDlgTypesPage : public GradingDlgListPage
{
    Q_OBJECT

public:
    explicit GradingDlgTypesPage(QWidget* parent = nullptr);

    void Fill(const std::vector<CwTypeEntry>& entries, int selectedRow);

    // Opens the pane under the title, or closes it when the title is empty.
    void ShowPane(const QString& title);

    CwTypeEditor* Editor() const { return m_editor; }

private:
    CwTypeEditor* m_editor;
};
