#pragma once

#include "DueItem.h"

#include <QIcon>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

class CDueNotifier;
class QMenu;
class QSystemTrayIcon;

// The companion's tray icon: its menu lists what is due (past due first,
// marked red); choosing an item starts Brindle on that coursework. The list
// is read again every minute, so that items pass into "past due" on time.
class CTodayTray : public QObject
{
    Q_OBJECT

public:
    // `notifier` may be null: no desktop notices.
    CTodayTray(const QString& databasePath, int days, CDueNotifier* notifier,
               QObject* parent = nullptr);
    ~CTodayTray() override;

    void Show();
    // Reads the database again and rebuilds the menu.
    void Refresh();

    QMenu* Menu() const { return m_menu.get(); }

    // Fills `menu` with one action per item, then Open Brindle and Quit; an
    // item's action carries its coursework id as data.
    static void FillMenu(QMenu* menu, const std::vector<DueItem>& items, const QString& status);

private:
    void Launch(const QStringList& arguments);

    QString m_databasePath;
    int m_days;
    CDueNotifier* m_notifier;
    std::unique_ptr<QMenu> m_menu;
    QSystemTrayIcon* m_icon;
    QTimer m_timer;
};
