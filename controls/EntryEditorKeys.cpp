#include "EntryEditorKeys.h"

#include <QKeyEvent>
#include <QWidget>

CEntryEditorKeys::CEntryEditorKeys(QWidget* pane, std::function<bool()> isOpen,
                                   std::function<void()> accept, std::function<void()> cancel)
    : QObject(pane), m_isOpen(std::move(isOpen)), m_accept(std::move(accept)),
      m_cancel(std::move(cancel))
{
    pane->installEventFilter(this);
}

bool CEntryEditorKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !m_isOpen())
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier)
        return QObject::eventFilter(watched, event);
    switch (key->key()) {
    case Qt::Key_Escape:
        m_cancel();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_accept();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}
