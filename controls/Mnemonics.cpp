#include "Mnemonics.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QSet>
#include <QTabBar>
#include <QWidget>

namespace Mnemonics {

namespace {

void SetText(const Entry& entry, const QString& text)
{
    if (auto* tabs = qobject_cast<QTabBar*>(entry.widget))
        tabs->setTabText(entry.tab, text);
    else if (auto* bar = qobject_cast<QMenuBar*>(entry.widget))
        bar->actions().at(entry.tab)->setText(text);
    else if (auto* label = qobject_cast<QLabel*>(entry.widget))
        label->setText(text);
    else if (auto* box = qobject_cast<QGroupBox*>(entry.widget))
        box->setTitle(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(entry.widget))
        button->setText(text);
}

// Where in `text` a free letter is: a word's first letter first.
int FreePosition(const QString& text, const QSet<QChar>& taken)
{
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (!c.isLetterOrNumber() || taken.contains(c.toLower()))
                continue;
            const bool wordStart = i == 0 || !text.at(i - 1).isLetterOrNumber();
            if (pass == 1 || wordStart)
                return i;
        }
    }
    return -1;
}

} // namespace

QList<Entry> Collect(QWidget* window)
{
    QList<Entry> entries;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (auto* label = qobject_cast<QLabel*>(widget)) {
            if (label->buddy() && label->textFormat() != Qt::RichText && !label->text().isEmpty())
                entries.append({label, -1, label->text()});
        } else if (auto* tabs = qobject_cast<QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i)
                entries.append({tabs, i, tabs->tabText(i)});
        } else if (auto* bar = qobject_cast<QMenuBar*>(widget)) {
            // An editor's menus open with Alt too: their letters are taken.
            const QList<QAction*> actions = bar->actions();
            for (int i = 0; i < actions.size(); ++i)
                if (actions[i]->isVisible() && !actions[i]->text().isEmpty())
                    entries.append({bar, i, actions[i]->text()});
        } else if (auto* box = qobject_cast<QGroupBox*>(widget)) {
            if (box->isCheckable())
                entries.append({box, -1, box->title()});
        } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            // Tool buttons show icons or arrows; a text-less button has no letter.
            if (!button->text().isEmpty() && button->focusPolicy() != Qt::NoFocus)
                entries.append({button, -1, button->text()});
        }
    }
    return entries;
}

QChar LetterOf(const QString& text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != u'&')
            continue;
        if (text.at(i + 1) == u'&') {
            ++i;
            continue;
        }
        return text.at(i + 1).toLower();
    }
    return {};
}

void Assign(QWidget* window)
{
    const QList<Entry> entries = Collect(window);
    QSet<QChar> taken;
    for (const Entry& entry : entries) {
        const QChar letter = LetterOf(entry.text);
        if (!letter.isNull())
            taken.insert(letter);
    }
    for (const Entry& entry : entries) {
        if (!LetterOf(entry.text).isNull())
            continue;
        const int position = FreePosition(entry.text, taken);
        if (position < 0)
            continue;
        taken.insert(entry.text.at(position).toLower());
        // The text is already in mnemonic form: a literal ampersand is "&&"
        // and stays so.
        QString text = entry.text;
        text.insert(position, u'&');
        SetText(entry, text);
    }
}

} // namespace Mnemonics
