#pragma once

#include <QChar>
#include <QList>
#include <QString>

class QWidget;

// Keyboard mnemonics (Alt+letter) for a window's labels, buttons, check boxes,
// group boxes and tabs. The string table keeps its texts as written; the
// letters are chosen when a window opens, in whatever language it speaks:
// a text that already has one keeps it, the others get the first free letter
// that starts a word, else any free letter.
namespace Mnemonics {

// One text that carries (or could carry) a mnemonic, and where it sits.
struct Entry
{
    QWidget* widget = nullptr;
    int tab = -1; // the tab's (or menu bar title's) index when the text is one
    QString text;
};

// The texts of `window` that take a mnemonic: labels with a buddy, buttons,
// check and radio boxes, checkable group boxes, tabs, menu bar titles.
QList<Entry> Collect(QWidget* window);

// The mnemonic letter of a text (lower case), or a null QChar. "&&" is a
// literal ampersand.
QChar LetterOf(const QString& text);

// Gives every collected text of `window` a letter that no other one has.
void Assign(QWidget* window);

} // namespace Mnemonics
