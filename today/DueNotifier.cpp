#include "DueNotifier.h"

#include "DueListFormat.h"
#include "res/strings/TodayStrings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

CDueNotifier::CDueNotifier(const QDBusConnection& bus, const QString& stateFile, QObject* parent)
    : QObject(parent), m_bus(bus), m_stateFile(stateFile)
{
}

QString CDueNotifier::DefaultStateFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/Today-notified.txt");
}

void CDueNotifier::SetLeadTimes(const QList<int>& minutes)
{
    m_leads = minutes;
    // Longest first: the first lead an item has come within is the nearest.
    std::sort(m_leads.begin(), m_leads.end(), std::greater<int>());
}

// The due time is the stored double itself, printed whole: a coursework moved
// to a new due time is notified again, at its new time.
QString CDueNotifier::Key(const DueItem& item, int lead)
{
    return QStringLiteral("%1 %2 %3")
        .arg(item.courseworkId)
        .arg(item.dueValue, 0, 'g', 17)
        .arg(lead);
}

bool CDueNotifier::Load()
{
    m_sent.clear();
    QFile file(m_stateFile);
    if (!file.exists())
        return true;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (!line.isEmpty())
            m_sent.insert(line);
    }
    return true;
}

bool CDueNotifier::Save() const
{
    QDir().mkpath(QFileInfo(m_stateFile).absolutePath());
    QSaveFile file(m_stateFile);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QStringList lines(m_sent.begin(), m_sent.end());
    lines.sort();
    const QByteArray data = lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    return file.write(data) == data.size() && file.commit();
}

void CDueNotifier::Check(const std::vector<DueItem>& items, const QDateTime& now)
{
    for (const DueItem& item : items) {
        // Computed from `now`, not the item's mark: the list may be older.
        const qint64 secondsLeft = now.secsTo(item.due);
        if (secondsLeft <= 0)
            continue;
        const qint64 minutesLeft = secondsLeft / 60;
        // The nearest lead time the item has come within: a companion started
        // 30 minutes before a due time gives the one-hour notice only.
        int lead = -1;
        for (const int candidate : std::as_const(m_leads))
            if (minutesLeft < candidate)
                lead = candidate;
        if (lead < 0)
            continue;
        const QString key = Key(item, lead);
        if (m_sent.contains(key) || m_pending.contains(key))
            continue;

        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.Notifications"),
            QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
        call << TodayStrings::Title() << quint32(0) << QStringLiteral(BRINDLE_APP_ID)
             << TodayStrings::NoticeSummary(item.name, item.course)
             << TodayStrings::NoticeBody(DueListFormat::DueText(item.due)) << QStringList()
             << QVariantMap() << qint32(-1);
        m_pending.insert(key);
        auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
        const quint32 id = item.courseworkId;
        // Every longer lead is passed too: none of them is to come later.
        QStringList covered;
        for (const int other : std::as_const(m_leads))
            if (other >= lead)
                covered << Key(item, other);
        connect(watcher, &QDBusPendingCallWatcher::finished, this,
                [this, key, covered, id](QDBusPendingCallWatcher* finished) {
                    finished->deleteLater();
                    m_pending.remove(key);
                    const QDBusPendingReply<quint32> reply = *finished;
                    if (reply.isError()) {
                        emit Failed(reply.error().message());
                        return;
                    }
                    for (const QString& done : covered)
                        m_sent.insert(done);
                    if (!Save()) {
                        emit Failed(TodayStrings::StateNotSaved(m_stateFile));
                        return;
                    }
                    emit Sent(id);
                });
    }
}
