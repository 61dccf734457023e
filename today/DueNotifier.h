#pragma once

#include "DueItem.h"

#include <QDBusConnection>
#include <QObject>
#include <QSet>
#include <QString>

#include <vector>

// Desktop notices through the freedesktop notification service: one notice
// when an item comes within a lead time of its due time (default 24 hours,
// then 1 hour), never twice for the same coursework, due time and lead time.
// What was sent is remembered in the companion's own state file, so that a
// restart does not repeat it; a notice counts as sent only once the service
// has taken it.
class CDueNotifier : public QObject
{
    Q_OBJECT

public:
    CDueNotifier(const QDBusConnection& bus, const QString& stateFile, QObject* parent = nullptr);

    // Lead times in minutes, any order.
    void SetLeadTimes(const QList<int>& minutes);
    QList<int> LeadTimes() const { return m_leads; }

    // Reads the state file; a missing file is an empty memory. False when
    // the file exists but cannot be read.
    bool Load();

    // Sends the notices that are due at `now` and not yet sent.
    void Check(const std::vector<DueItem>& items, const QDateTime& now);

    static QString DefaultStateFile();

signals:
    // After the service answered a notice and the state file was written.
    void Sent(quint32 courseworkId);
    void Failed(const QString& reason);

private:
    static QString Key(const DueItem& item, int lead);
    bool Save() const;

    QDBusConnection m_bus;
    QString m_stateFile;
    QList<int> m_leads{24 * 60, 60};
    QSet<QString> m_sent;
    QSet<QString> m_pending;
};
