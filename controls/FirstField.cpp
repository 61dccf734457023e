#include "FirstField.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>
#include <QWidget>

namespace FirstField {

namespace {

bool IsField(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           qobject_cast<const QAbstractItemView*>(widget) ||
           qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget);
}

bool Takes(const QWidget* dialog, const QWidget* widget)
{
    return dialog->isAncestorOf(widget) && widget->isEnabled() && widget->isVisibleTo(dialog) &&
           (widget->focusPolicy() & Qt::TabFocus) && IsField(widget);
}

} // namespace

QWidget* Find(QWidget* dialog)
{
    for (QWidget* w = dialog->nextInFocusChain(); w && w != dialog; w = w->nextInFocusChain()) {
        // A combo box's own line edit stands for the combo box.
        if (qobject_cast<QComboBox*>(w->parentWidget()) && Takes(dialog, w->parentWidget()))
            return w->parentWidget();
        if (Takes(dialog, w))
            return w;
    }
    return nullptr;
}

void Focus(QWidget* dialog)
{
    const QWidget* chosen = dialog->focusWidget();
    if (chosen && chosen != dialog && Takes(dialog, chosen))
        return;
    if (QWidget* field = Find(dialog))
        field->setFocus(Qt::OtherFocusReason);
}

} // namespace FirstField
