#pragma once

#include "outlook/PimFolders.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

// The real clients of the exported folders, run as programs: todoman (tasks),
// khal (calendar) and khard (contacts), each with a configuration of its own
// in a throwaway home folder pointed at the folders, so that nothing of the
// machine's user is read or written.
class PimClients
{
public:
    explicit PimClients(const PimFolders& folders);

    bool IsReady() const { return m_ready; }

    // The program's path, or empty when it is not installed. "todoman" is
    // also found under its upstream name "todo".
    static QString Find(const QString& program);

    // Runs the client with the arguments (and the input on its standard
    // input); its standard output, or an empty text with `error` set when it
    // failed. `timeZone` sets TZ for this run only.
    QString Run(const QString& program, const QStringList& arguments,
                const QByteArray& input = QByteArray(), QString* error = nullptr,
                const QString& timeZone = QString()) const;

    QProcessEnvironment Environment() const;

private:
    QTemporaryDir m_home;
    bool m_ready = false;
};
