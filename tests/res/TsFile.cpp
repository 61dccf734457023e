#include "TsFile.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

// The text of the element just started, up to its end. lupdate writes what
// XML cannot hold, the carriage return of "\r\n", as <byte value="xd"/>;
// reading the element's characters alone stopped at the first one and hid
// every message after it.
QString ElementText(QXmlStreamReader& xml)
{
    QString text;
    for (int depth = 1; depth > 0 && !xml.atEnd();) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::Characters)
            text += xml.text();
        else if (token == QXmlStreamReader::EndElement)
            --depth;
        else if (token == QXmlStreamReader::StartElement && ++depth > 0 && xml.name() == u"byte")
            text +=
                QChar(xml.attributes().value(QStringLiteral("value")).mid(1).toUInt(nullptr, 16));
    }
    return text;
}

} // namespace

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
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto name = xml.name();
        if (name == u"name") {
            context = ElementText(xml);
        } else if (name == u"message") {
            message = TsMessage{context,
                                {},
                                {},
                                false,
                                xml.attributes().value(QStringLiteral("numerus")) == u"yes"};
        } else if (name == u"source") {
            message.source = ElementText(xml);
        } else if (name == u"translation") {
            // Finished: not "unfinished", and not left over from a text that
            // no longer exists ("vanished", "obsolete").
            const bool marked = xml.attributes().value(QStringLiteral("type")).isEmpty();
            if (message.numerus) {
                while (xml.readNextStartElement())
                    if (message.translation.isEmpty())
                        message.translation = ElementText(xml);
                    else
                        xml.skipCurrentElement();
            } else {
                message.translation = ElementText(xml);
            }
            message.finished = marked && !message.translation.isEmpty();
            messages->append(message);
        }
    }
    if (xml.hasError())
        *error = xml.errorString();
    return !xml.hasError();
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
