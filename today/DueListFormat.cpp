#include "DueListFormat.h"

#include "res/strings/TodayStrings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace DueListFormat {

QString DueText(const QDateTime& due)
{
    // A fixed, sortable form: the list is read by scripts as often as by eye.
    return due.toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString Text(const std::vector<DueItem>& items)
{
    if (items.empty())
        return TodayStrings::NothingDue() + QLatin1Char('\n');
    qsizetype courseWidth = 0;
    qsizetype nameWidth = 0;
    for (const DueItem& item : items) {
        courseWidth = std::max(courseWidth, item.course.size());
        nameWidth = std::max(nameWidth, item.name.size());
    }
    QString out;
    for (const DueItem& item : items) {
        QString line = DueText(item.due) + QStringLiteral("  ") +
                       item.course.leftJustified(courseWidth) + QStringLiteral("  ") +
                       item.name.leftJustified(nameWidth);
        if (item.pastDue)
            line += QStringLiteral("  ") + TodayStrings::PastDueMark();
        // No trailing blanks when the last column is empty.
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        out += line + QLatin1Char('\n');
    }
    return out;
}

QByteArray Json(const std::vector<DueItem>& items)
{
    QJsonArray array;
    for (const DueItem& item : items) {
        QJsonObject object;
        object.insert(QStringLiteral("id"), static_cast<qint64>(item.courseworkId));
        object.insert(QStringLiteral("name"), item.name);
        object.insert(QStringLiteral("course"), item.course);
        object.insert(QStringLiteral("due"), item.due.toString(Qt::ISODate));
        object.insert(QStringLiteral("pastDue"), item.pastDue);
        object.insert(QStringLiteral("completed"), static_cast<int>(item.completed));
        array.append(object);
    }
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}

} // namespace DueListFormat
