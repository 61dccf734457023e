#include "ContextMenuKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

CContextMenuKey::CContextMenuKey(QObject* parent) : QObject(parent) {}

bool CContextMenuKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    QWidget* target = QApplication::focusWidget();
    if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier || !target ||
        watched != target)
        return QObject::eventFilter(watched, event);
    // The same event the Menu key sends: at the text cursor or current item
    // when the widget has one, else in the widget's middle.
    const QRect cursor = target->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QPoint position = cursor.isValid() ? cursor.center() : target->rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, position, target->mapToGlobal(position));
    QCoreApplication::sendEvent(target, &menu);
    return true;
}
