#include "RowMenu.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QMenu>
#include <QTapAndHoldGesture>

CRowMenu::CRowMenu(QAbstractItemView* view, Builder builder)
    : QObject(view), m_view(view), m_viewport(view->viewport()), m_builder(std::move(builder))
{
    // A mouse's request arrives at the viewport, the Menu key's at the view.
    view->setContextMenuPolicy(Qt::DefaultContextMenu);
    m_viewport->grabGesture(Qt::TapAndHoldGesture);
    m_viewport->installEventFilter(this);
    view->installEventFilter(this);
}

bool CRowMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu && event->type() != QEvent::Gesture)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::ContextMenu) {
        auto* request = static_cast<QContextMenuEvent*>(event);
        if (watched == m_viewport) {
            Open(m_view->indexAt(request->pos()).row(), request->pos());
            return true;
        }
        if (watched == m_view && request->reason() == QContextMenuEvent::Keyboard) {
            const QModelIndex current = m_view->currentIndex();
            Open(current.row(),
                 current.isValid() ? m_view->visualRect(current).center() : QPoint(0, 0));
            return true;
        }
    }
    if (watched == m_viewport && event->type() == QEvent::Gesture) {
        auto* gestures = static_cast<QGestureEvent*>(event);
        if (auto* hold =
                static_cast<QTapAndHoldGesture*>(gestures->gesture(Qt::TapAndHoldGesture))) {
            if (hold->state() == Qt::GestureFinished) {
                const QPoint position = m_viewport->mapFromGlobal(hold->position().toPoint());
                Open(m_view->indexAt(position).row(), position);
            }
            gestures->accept(hold);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void CRowMenu::Open(int row, const QPoint& viewportPosition)
{
    if (QMenu* menu = m_builder(row))
        menu->popup(m_viewport->mapToGlobal(viewportPosition));
}
