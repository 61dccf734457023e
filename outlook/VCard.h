#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

// A vCard 3.0 (RFC 2426) as lines: read from a file (unfolded), changed one
// property at a time, written back folded. Lines Brindle does not set are
// kept as they were, so a contact edited in an address book keeps the
// user's additions.
class CVCard
{
public:
    // A new card: VERSION, PRODID and a fresh UID.
    static CVCard New();
    // Reads the first card of the bytes; false when there is none.
    static bool Parse(const QByteArray& bytes, CVCard* card);

    // Replaces the lines of the property whose TYPE parameters are exactly
    // `types` (any TYPE when `types` is empty) with one line carrying the
    // value, already escaped; an empty value only removes, unless the
    // property is required (FN and N).
    void Set(const QString& name, const QStringList& types, const QString& escapedValue,
             bool required = false);
    bool Has(const QString& name) const;
    // The unescaped value of the first line of the property; empty when none.
    QString Value(const QString& name) const;

    // The card, folded at 75 octets, CRLF line ends, UTF-8.
    QByteArray ToBytes() const;

    // Text escaped as a vCard value: backslash, comma, semicolon, line breaks.
    static QString Escape(const QString& text);
    static QString Unescape(const QString& text);

private:
    std::vector<QString> m_lines; // unfolded, without BEGIN and END
};
