#pragma once

#include <QObject>

// Shift+F10 opens the focused widget's context menu, as the Menu key does:
// keyboard users on keyboards without a Menu key reach every tap-and-hold
// menu too. Installed once on the application.
class CContextMenuKey : public QObject
{
    Q_OBJECT

public:
    explicit CContextMenuKey(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
