#include "TsFile.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

bool ReadTsFile(const QString& path, QList<TsMessage>* messages, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return false;
    }
    QXmlStreamReader xml(&file);
    QString context;
    TsMessage message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == u"name" && message.source.isNull()) {
            context = xml.readElementText();
        } else if (name == u"message") {
            message = TsMessage{context, {}, {}, false, false};
            message.numerus = xml.attributes().value(QStringLiteral("numerus")) == u"yes";
        } else if (name == u"source") {
            message.source = xml.readElementText();
        } else if (name == u"translation") {
            const auto type = xml.attributes().value(QStringLiteral("type"));
            // Finished: not "unfinished", and not left over from a text that
            // no longer exists ("vanished", "obsolete").
            message.finished = type.isEmpty();
            if (message.numerus) {
                while (xml.readNextStartElement())
                    if (message.translation.isEmpty())
                        message.translation = xml.readElementText();
                    else
                        xml.skipCurrentElement();
            } else {
                message.translation = xml.readElementText();
            }
            message.finished = message.finished && !message.translation.isEmpty();
            messages->append(message);
            message = TsMessage{};
        }
    }
    if (xml.hasError()) {
        *error = xml.errorString();
        return false;
    }
    return true;
}

QStringList PlaceholdersOf(const QString& text)
{
    static const QRegularExpression placeholder(QStringLiteral("%(%|L?\\d{1,2}|n|s|d|f)"));
    QStringList found;
    for (const auto& match : placeholder.globalMatch(text))
        if (match.captured(1) != u"%")
            found.append(match.captured(0));
    found.sort();
    return found;
}
