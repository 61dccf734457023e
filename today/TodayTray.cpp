#include "TodayTray.h"

#include "BrindleData.h"
#include "DueList.h"
#include "DueListFormat.h"
#include "DueNotifier.h"
#include "ReadOnlyDatabase.h"
#include "res/strings/TodayStrings.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QSystemTrayIcon>

namespace {

// Tray menus are often drawn by the desktop (exported over D-Bus), which
// shows an item's text and icon and nothing else: a red mark is the one way
// to make past-due items red everywhere.
QIcon PastDueIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xd0, 0x10, 0x10));
    painter.drawEllipse(QRectF(2, 2, 12, 12));
    return QIcon(pixmap);
}

} // namespace

CTodayTray::CTodayTray(const QString& databasePath, const QString& settingsFile, int days,
                       CDueNotifier* notifier, QObject* parent)
    : QObject(parent), m_databasePath(databasePath), m_days(days), m_notifier(notifier),
      m_menu(std::make_unique<QMenu>()),
      m_icon(new QSystemTrayIcon(QIcon(QStringLiteral(":/images/brindle.svg")), this)),
      m_switch(settingsFile)
{
    m_icon->setContextMenu(m_menu.get());
    connect(m_menu.get(), &QMenu::triggered, this, [this](QAction* action) {
        const QString name = action->objectName();
        if (name == QLatin1String("actionQuit"))
            QCoreApplication::quit();
        else if (name == QLatin1String("actionOpenBrindle"))
            Launch({QStringLiteral("--database"), m_databasePath});
        else if (action->data().isValid())
            Launch({QStringLiteral("--database"), m_databasePath, QStringLiteral("--coursework"),
                    QString::number(action->data().toUInt())});
    });
    connect(m_icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    m_menu->popup(QCursor::pos());
            });
    m_timer.setInterval(60 * 1000);
    connect(&m_timer, &QTimer::timeout, this, &CTodayTray::Refresh);

    // A save comes as several changes (a restore renames, copies, renames):
    // wait until they settle, well within the second.
    m_settle.setSingleShot(true);
    m_settle.setInterval(200);
    connect(&m_settle, &QTimer::timeout, this, [this] {
        Watch();
        Refresh();
    });
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settle, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settle,
            qOverload<>(&QTimer::start));
    Watch();
}

// The folders too: a file replaced by a rename drops out of the watch, and
// a settings file made later must still be seen.
void CTodayTray::Watch()
{
    for (const QString& file : {m_databasePath, m_switch.File()}) {
        const QFileInfo info(file);
        QStringList paths{info.absolutePath()};
        if (info.exists())
            paths << info.absoluteFilePath();
        for (const QString& path : paths)
            if (!m_watcher.files().contains(path) && !m_watcher.directories().contains(path))
                m_watcher.addPath(path);
    }
}

CTodayTray::~CTodayTray() = default;

void CTodayTray::Show()
{
    Refresh();
    m_icon->show();
    m_timer.start();
}

void CTodayTray::Refresh()
{
    const QDateTime now = QDateTime::currentDateTime();
    CDueList list;
    QString status;
    const std::optional<quint32> enabled = m_switch.Enabled();
    // Each refresh opens the file afresh and lets go of it at once: Brindle
    // may back it up or replace it at any time.
    if (enabled && *enabled == 0)
        status = TodayStrings::Paused();
    else if (ReadOnlyDatabase::Mount(m_databasePath, &status) && !list.Read(now, m_days))
        status = list.ErrorText();
    ReadOnlyDatabase::Unmount();
    if (m_notifier && status.isEmpty())
        m_notifier->Check(list.Items(), now);
    FillMenu(m_menu.get(), list.Items(), status);

    int pastDue = 0;
    for (const DueItem& item : list.Items())
        pastDue += item.pastDue ? 1 : 0;
    m_icon->setToolTip(
        status.isEmpty() ? TodayStrings::TrayToolTip(int(list.Items().size()), pastDue) : status);
}

void CTodayTray::FillMenu(QMenu* menu, const std::vector<DueItem>& items, const QString& status)
{
    menu->clear();
    menu->setTitle(TodayStrings::Title());
    if (!status.isEmpty()) {
        menu->addAction(status)->setEnabled(false);
    } else if (items.empty()) {
        menu->addAction(TodayStrings::NothingDue())->setEnabled(false);
    } else {
        const QIcon pastDueIcon = PastDueIcon();
        for (const DueItem& item : items) {
            QAction* action = menu->addAction(
                TodayStrings::MenuItem(item.name, item.course, DueListFormat::DueText(item.due)));
            action->setData(item.courseworkId);
            if (item.pastDue)
                action->setIcon(pastDueIcon);
        }
    }
    menu->addSeparator();
    menu->addAction(TodayStrings::OpenBrindle())
        ->setObjectName(QStringLiteral("actionOpenBrindle"));
    menu->addAction(TodayStrings::Quit())->setObjectName(QStringLiteral("actionQuit"));
}

void CTodayTray::Launch(const QStringList& arguments)
{
    // brindle is installed beside brindle-today (and built beside it).
    const QString program =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("brindle"));
    if (!QProcess::startDetached(program, arguments))
        m_icon->showMessage(TodayStrings::Title(), TodayStrings::CannotStartBrindle(),
                            QSystemTrayIcon::Warning);
}
