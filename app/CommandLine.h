#pragma once

#include <QString>

class QCoreApplication;

// What the command line asks for.
struct CommandLine
{
    QString database;
    QString screenshot;
    bool quitAfterShow = false;
    bool demo = false;
    // A coursework to open in its editor on start (the Today companion's
    // items); 0 for none.
    quint32 coursework = 0;

    static CommandLine Parse(const QCoreApplication& app);
};
