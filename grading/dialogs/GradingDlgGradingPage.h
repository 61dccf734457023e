#pragma once

#include "GradingDlgEntries.h"

#include <QWidget>

#include <vector>

class MinimumPercentEditor;
class QGroupBox;
class QPushButton;
class QTreeWidget;

// The "Grading" page: the minimum percent of each grade and the pane that
// edits one.
class GradingDlgGradingPage : public QWidget
{
    Q_OBJECT

public:
    explicit GradingDlgGradingPage(QWidget* parent = nullptr);

    void Fill(const std::vector<MinimumPercentEntry>& entries, int selectedRow);
    int SelectedRow() const;

    void ShowPane(bool open);
    bool PaneOpen() const;

    QTreeWidget* List() const { return m_list; }
    MinimumPercentEditor* Editor() const { return m_editor; }
    QWidget* Pane() const;
    QPushButton* ApplyButton() const { return m_apply; }
    QPushButton* DiscardButton() const { return m_discard; }

private:
    QTreeWidget* m_list;
    QGroupBox* m_pane;
    MinimumPercentEditor* m_editor;
    QPushButton* m_apply;
    QPushButton* m_discard;
};
