#include "VCard.h"

#include <QSet>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int FoldOctets = 75;

// The property name of a line without its group ("item1.EMAIL" is EMAIL).
QString NameOf(const QString& line)
{
    qsizetype end = 0;
    while (end < line.size() && line[end] != QLatin1Char(':') && line[end] != QLatin1Char(';'))
        ++end;
    QString name = line.left(end).toUpper();
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 ? name.mid(dot + 1) : name;
}

// The TYPE values of a line, upper-case: TYPE=A,B and TYPE=A;TYPE=B alike.
QSet<QString> TypesOf(const QString& line)
{
    QSet<QString> types;
    const qsizetype colon = line.indexOf(QLatin1Char(':'));
    const QStringList parts = line.left(colon < 0 ? line.size() : colon).split(QLatin1Char(';'));
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const QString& part = parts[i];
        if (part.startsWith(QStringLiteral("TYPE="), Qt::CaseInsensitive)) {
            for (const QString& type : part.mid(5).split(QLatin1Char(',')))
                types.insert(type.toUpper().remove(QLatin1Char('"')));
        }
    }
    return types;
}

} // namespace

CVCard CVCard::New()
{
    CVCard card;
    card.m_lines.push_back(QStringLiteral("VERSION:3.0"));
    card.m_lines.push_back(QStringLiteral("PRODID:-//Brindle//Brindle//EN"));
    card.m_lines.push_back(QStringLiteral("UID:") +
                           QUuid::createUuid().toString(QUuid::WithoutBraces));
    return card;
}

bool CVCard::Parse(const QByteArray& bytes, CVCard* card)
{
    std::vector<QString> unfolded;
    for (QByteArray line : bytes.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        if ((line.startsWith(' ') || line.startsWith('\t')) && !unfolded.empty())
            unfolded.back() += QString::fromUtf8(line.mid(1));
        else if (!line.isEmpty())
            unfolded.push_back(QString::fromUtf8(line));
    }
    bool inCard = false;
    card->m_lines.clear();
    for (const QString& line : unfolded) {
        const QString upper = line.toUpper();
        if (upper == QStringLiteral("BEGIN:VCARD")) {
            inCard = true;
        } else if (upper == QStringLiteral("END:VCARD")) {
            if (inCard)
                return true;
        } else if (inCard) {
            card->m_lines.push_back(line);
        }
    }
    return false;
}

void CVCard::Set(const QString& name, const QStringList& types, const QString& escapedValue,
                 bool required)
{
    QSet<QString> wanted;
    for (const QString& type : types)
        wanted.insert(type.toUpper());
    std::erase_if(m_lines, [&](const QString& line) {
        return NameOf(line) == name && (wanted.isEmpty() || TypesOf(line) == wanted);
    });
    if (escapedValue.isEmpty() && !required)
        return;
    QString line = name;
    if (!types.isEmpty())
        line += QStringLiteral(";TYPE=") + types.join(QLatin1Char(','));
    m_lines.push_back(line + QLatin1Char(':') + escapedValue);
}

bool CVCard::Has(const QString& name) const
{
    return std::any_of(m_lines.begin(), m_lines.end(),
                       [&](const QString& line) { return NameOf(line) == name; });
}

QString CVCard::Value(const QString& name) const
{
    for (const QString& line : m_lines) {
        if (NameOf(line) == name) {
            const qsizetype colon = line.indexOf(QLatin1Char(':'));
            return colon < 0 ? QString() : Unescape(line.mid(colon + 1));
        }
    }
    return QString();
}

QByteArray CVCard::ToBytes() const
{
    QByteArray out("BEGIN:VCARD\r\n");
    for (const QString& line : m_lines) {
        const QByteArray utf8 = line.toUtf8();
        qsizetype start = 0;
        int room = FoldOctets;
        while (utf8.size() - start > room) {
            qsizetype cut = start + room;
            // Never split a UTF-8 sequence: back up to the start of a character.
            while (cut > start && (static_cast<unsigned char>(utf8[cut]) & 0xC0) == 0x80)
                --cut;
            out += utf8.mid(start, cut - start) + "\r\n ";
            start = cut;
            room = FoldOctets - 1; // the leading space counts
        }
        out += utf8.mid(start) + "\r\n";
    }
    out += "END:VCARD\r\n";
    return out;
}

QString CVCard::Escape(const QString& text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\\') || c == QLatin1Char(',') || c == QLatin1Char(';')) {
            out += QLatin1Char('\\');
            out += c;
        } else if (c == QLatin1Char('\r')) {
            out += QStringLiteral("\\n");
            if (i + 1 < text.size() && text[i + 1] == QLatin1Char('\n'))
                ++i;
        } else if (c == QLatin1Char('\n')) {
            out += QStringLiteral("\\n");
        } else {
            out += c;
        }
    }
    return out;
}

QString CVCard::Unescape(const QString& text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('\\') && i + 1 < text.size()) {
            const QChar next = text[++i];
            out += (next == QLatin1Char('n') || next == QLatin1Char('N')) ? QChar(QLatin1Char('\n'))
                                                                          : next;
        } else {
            out += text[i];
        }
    }
    return out;
}
