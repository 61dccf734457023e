#pragma once

#include <QStringList>
#include <QWidget>

class QGroupBox;
class QPushButton;
class QTreeWidget;

// What the two list pages of the grading policy dialog share: a list of
// entries, and under it a pane that edits one, with its Apply and Discard.
// Shows and collects only; the dialog decides.
class GradingDlgListPage : public QWidget
{
    Q_OBJECT

public:
    // -1 when no entry is selected.
    int SelectedRow() const;
    bool PaneOpen() const;

    QTreeWidget* List() const { return m_list; }
    QWidget* Pane() const;
    QPushButton* ApplyButton() const { return m_apply; }
    QPushButton* DiscardButton() const { return m_discard; }

protected:
    // `names`: the prefix of the pane's object names ("cwType" gives
    // "cwTypePane", "cwTypeApplyButton", "cwTypeDiscardButton"). The first
    // column stretches, the others (numbers) fit their contents.
    GradingDlgListPage(QWidget* parent, const QString& names, const QStringList& columns);

    // Puts `top` above the list and `editor` (a child of PaneBox()) in the
    // pane, with the pane's buttons after it. Called once, by the constructor.
    void LayOut(QWidget* top, QWidget* editor);
    // Selects the row, when there is one.
    void SelectRow(int row);

    QGroupBox* PaneBox() const { return m_pane; }

private:
    QTreeWidget* m_list;
    QGroupBox* m_pane;
    QPushButton* m_apply = nullptr;
    QPushButton* m_discard = nullptr;
    QString m_names;
};
