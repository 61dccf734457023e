#pragma once

#include <QDialog>

class QListWidget;
class QListWidgetItem;
class QPushButton;

// What the course order and tab order dialogs share: a hint, the list, "Move
// Up" and "Move Down", OK / Cancel / Help. The rows are the subclass's working
// copy; moving swaps two of them and keeps the moved row selected. Nothing is
// written before OK.
class OrderListDlg : public QDialog
{
    Q_OBJECT

public:
    // Do nothing without a selection or at the end of the list.
    void MoveUp();
    void MoveDown();

    // Writes the order; false (after telling the user) when nothing changed.
    virtual bool OnOK() = 0;

    int SelectedRow() const;
    void SelectRow(int row);
    QListWidget* List() const { return m_list; }
    QPushButton* MoveUpButton() const { return m_moveUp; }
    QPushButton* MoveDownButton() const { return m_moveDown; }

    void accept() override;

protected:
    OrderListDlg(const QString& name, const QString& title, const QString& hint, QWidget* parent);

    // Fills the list from the rows and selects one (-1: none).
    void Redraw(int selectedRow);

    virtual int RowCount() const = 0;
    virtual void SwapRows(int first, int second) = 0;
    // Sets the item's text (and check box) from the row.
    virtual void ShowRow(QListWidgetItem& item, int row) const = 0;
    // The user changed an item (its check box).
    virtual void RowChanged(const QListWidgetItem& /*item*/, int /*row*/) {}

private:
    void Move(int step);

    QListWidget* m_list;
    QPushButton* m_moveUp;
    QPushButton* m_moveDown;
};
