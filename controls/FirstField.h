#pragma once

class QWidget;

// The field a dialog's keyboard input should go to when it opens: the first
// enabled, visible input control in its focus chain (never the tab bar, the
// menu bar or a button), so that the first characters typed land in it.
namespace FirstField {

QWidget* Find(QWidget* dialog);

// Gives the first field the focus unless the dialog already chose one.
void Focus(QWidget* dialog);

} // namespace FirstField
