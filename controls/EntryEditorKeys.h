#pragma once

#include <QObject>

#include <functional>

class QWidget;

// Escape and Return for an entry editor that opens in place inside a dialog
// (a meeting time, a textbook, a building, an office hour, a coursework type,
// a minimum percent). Key presses that the editor's fields leave unused travel
// up to the editor's pane before they reach the dialog; while the editor is
// open, Return and keypad Enter accept it and Escape closes only it, so the
// dialog with everything typed in it stays open. With the editor closed the
// keys go on to the dialog as before.
class CEntryEditorKeys : public QObject
{
    Q_OBJECT

public:
    CEntryEditorKeys(QWidget* pane, std::function<bool()> isOpen, std::function<void()> accept,
                     std::function<void()> cancel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool()> m_isOpen;
    std::function<void()> m_accept;
    std::function<void()> m_cancel;
};
