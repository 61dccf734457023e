#pragma once

#include <QListWidget>

// The one selected row of a single-selection list, as the dialogs of this
// folder read and set it: -1 is no selection (a current row alone is not
// selected).
namespace ListSelection {

inline int SelectedRow(const QListWidget& list)
{
    const QList<QListWidgetItem*> selected = list.selectedItems();
    return selected.isEmpty() ? -1 : list.row(selected.first());
}

inline void SelectRow(QListWidget& list, int row)
{
    if (row >= 0 && row < list.count())
        list.setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    else
        list.clearSelection();
}

} // namespace ListSelection
