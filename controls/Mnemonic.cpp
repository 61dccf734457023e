#include "Mnemonic.h"

QString WithMnemonic(const QString& title)
{
    QString marked = title;
    marked.replace(QLatin1Char('&'), QStringLiteral("&&"));
    for (qsizetype i = 0; i < marked.size(); ++i) {
        if (marked.at(i).isLetterOrNumber()) {
            marked.insert(i, QLatin1Char('&'));
            break;
        }
    }
    return marked;
}
