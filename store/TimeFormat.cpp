#include "TimeFormat.h"

#include <QLocale>
#include <QRegularExpression>

namespace BrindleDate {

QString ShortTimeFormat()
{
    QString format = QLocale().timeFormat(QLocale::ShortFormat);
    format.remove(QRegularExpression(QStringLiteral("[:.]?s+")));
    return format;
}

} // namespace BrindleDate
