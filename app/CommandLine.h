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

    static CommandLine Parse(const QCoreApplication& app);
};
