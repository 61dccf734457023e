#pragma once

#include <QFontMetrics>
#include <QTreeView>

// Pads a tree's rows by a share of the font height, so that its columns never
// touch at any font size.
inline void PadTreeRows(QTreeView* view)
{
    const int line = view->fontMetrics().height();
    view->setStyleSheet(
        QStringLiteral("QTreeView::item { padding: %1px %2px; }").arg(line / 6).arg(line / 3));
}
