#pragma once

#include "DueItem.h"
#include "app/TodaySwitch.h"

#include <QFileSystemWatcher>
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
// is read again every minute, so that items pass into "past due" on time,
// and within a second of a change of the database or of Brindle's settings
// file. While the settings say "Enabled" = 0 (Brindle is replacing the
// database) the companion does not open the database and shows "paused".
class CTodayTray : public QObject
{
    Q_OBJECT

public:
    // `notifier` may be null: no desktop notices.
    CTodayTray(const QString& databasePath, const QString& settingsFile, int days,
               CDueNotifier* notifier, QObject* parent = nullptr);
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
    void Watch();

    QString m_databasePath;
    int m_days;
    CDueNotifier* m_notifier;
    std::unique_ptr<QMenu> m_menu;
    QSystemTrayIcon* m_icon;
    QTimer m_timer;
    CTodaySwitch m_switch;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
};
