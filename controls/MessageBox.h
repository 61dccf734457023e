#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

// Every message box of Brindle goes through here: the application title as
// caption, and a hook that lets tests answer instead of a user.
namespace BrindleMessageBox {

QMessageBox::StandardButton Show(QWidget* parent, const QString& text, QMessageBox::Icon icon,
                                 QMessageBox::StandardButtons buttons,
                                 const QString& caption = QString());

// An OK box with the information icon, captioned with the application title.
void Inform(QWidget* parent, const QString& text);
// An OK box with the exclamation icon.
void Warn(QWidget* parent, const QString& text);
// A change that did not land (its transaction failed): says so with the
// store's reason, under the exclamation icon. The caller keeps its dialog open.
void WarnNotSaved(QWidget* parent);
// "Confirm Delete" with Yes and No and the question icon; true on Yes.
bool ConfirmDelete(QWidget* parent, const QString& text);

// Test hook: when set, no box is shown; the hook sees the text and answers.
using Answerer = std::function<QMessageBox::StandardButton(const QString& text)>;
void SetAnswerer(Answerer answerer);

} // namespace BrindleMessageBox
