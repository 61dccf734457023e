#pragma once

#include "GradingDlgEntries.h"
#include "GradingDlgListPage.h"

#include <vector>

class MinimumPercentEditor;

// The "Grading" page: the minimum percent of each grade and the pane that
// edits one.
class GradingDlgGradingPage : public GradingDlgListPage
{
    Q_OBJECT

public:
    explicit GradingDlgGradingPage(QWidget* parent = nullptr);

    void Fill(const std::vector<MinimumPercentEntry>& entries, int selectedRow);

    void ShowPane(bool open);

    MinimumPercentEditor* Editor() const { return m_editor; }

private:
    MinimumPercentEditor* m_editor;
};
