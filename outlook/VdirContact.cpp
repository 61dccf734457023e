#include "VdirContact.h"

#include "VdirStore.h"

#include <QDateTime>
#include <QFile>

namespace {
QString PathOf(const QString& folder, quint32 id)
{
    return folder + QLatin1Char('/') + QString::number(id) + QStringLiteral(".vcf");
}
} // namespace

CVdirContact::CVdirContact(QString path, quint32 id, CVCard card)
    : m_path(std::move(path)), m_id(id), m_card(std::move(card))
{
}

std::unique_ptr<CVdirContact> CVdirContact::Create(const QString& folder, quint32 id)
{
    return std::unique_ptr<CVdirContact>(new CVdirContact(PathOf(folder, id), id, CVCard::New()));
}

std::unique_ptr<CVdirContact> CVdirContact::Load(const QString& folder, quint32 id)
{
    const QString path = PathOf(folder, id);
    QFile file(path);
    CVCard card;
    if (!file.open(QIODevice::ReadOnly) || !CVCard::Parse(file.readAll(), &card))
        return nullptr;
    return std::unique_ptr<CVdirContact>(new CVdirContact(path, id, std::move(card)));
}

void CVdirContact::put_FileAs(const QString& text)
{
    m_card.Set(QStringLiteral("FN"), {}, CVCard::Escape(text), true);
}

void CVdirContact::put_LastName(const QString& text)
{
    // Family;Given;Additional;Prefix;Suffix: the whole name as the family
    // name, which sorts and shows as the instructor is known.
    m_card.Set(QStringLiteral("N"), {}, CVCard::Escape(text) + QStringLiteral(";;;;"), true);
}

void CVdirContact::put_OfficeLocation(const QString& text)
{
    // Box;Extended;Street;Locality;Region;Code;Country: a room in a building
    // is the extended address.
    const QString office = text.trimmed();
    m_card.Set(QStringLiteral("ADR"), {QStringLiteral("WORK")},
               office.isEmpty()
                   ? QString()
                   : QLatin1Char(';') + CVCard::Escape(office) + QStringLiteral(";;;;;"));
}

void CVdirContact::put_Email1Address(const QString& text)
{
    m_card.Set(QStringLiteral("EMAIL"), {QStringLiteral("INTERNET")},
               CVCard::Escape(text.trimmed()));
}

void CVdirContact::put_HomeTelephoneNumber(const QString& text)
{
    m_card.Set(QStringLiteral("TEL"), {QStringLiteral("HOME")}, CVCard::Escape(text.trimmed()));
}

void CVdirContact::put_Body(const QString& text)
{
    m_card.Set(QStringLiteral("NOTE"), {}, CVCard::Escape(text));
}

int CVdirContact::Save()
{
    // FN and N are required, whatever was set.
    if (!m_card.Has(QStringLiteral("FN")))
        m_card.Set(QStringLiteral("FN"), {}, QString(), true);
    if (!m_card.Has(QStringLiteral("N")))
        m_card.Set(QStringLiteral("N"), {}, QStringLiteral(";;;;"));
    m_card.Set(QStringLiteral("REV"), {},
               QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")));
    return CVdirStore::WriteAtomically(m_path, m_card.ToBytes());
}
