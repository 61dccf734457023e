#pragma once

#include <QObject>

#include <functional>

class QAbstractItemView;
class QMenu;
class QWidget;

// Opens a list's row menu the three ways a user asks for one: a right click
// (on the row under the pointer), press-and-hold on a touch screen, and the
// Menu key (on the current row). The builder makes the menu for a row (-1:
// no row) or returns nullptr when there is nothing to offer.
class CRowMenu : public QObject
{
    Q_OBJECT

public:
    using Builder = std::function<QMenu*(int row)>;

    CRowMenu(QAbstractItemView* view, Builder builder);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open(int row, const QPoint& viewportPosition);

    QAbstractItemView* m_view;
    // Kept apart from m_view: events still reach the filter while the view is
    // being destroyed, when calling into it is no longer allowed.
    QWidget* m_viewport;
    Builder m_builder;
};
