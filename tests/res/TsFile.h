#pragma once

#include <QList>
#include <QString>

// One message of a Qt Linguist .ts file.
struct TsMessage
{
    QString context;
    QString source;
    QString translation; // the first numerus form for plural texts
    bool finished = false;
    bool numerus = false;
};

// Reads every message of a .ts file; false when the file cannot be read or is
// not well-formed.
bool ReadTsFile(const QString& path, QList<TsMessage>* messages, QString* error);

// The placeholders of a text (%1..%99, %L1, %n, %s, %d, %f), sorted, so that
// two texts that take the same arguments compare equal. "%%" is a literal.
QStringList PlaceholdersOf(const QString& text);
