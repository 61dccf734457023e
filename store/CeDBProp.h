#pragma once

#include <QString>
#include <QVariant>

// A key value for a seek: an unsigned 32-bit record id, an unsigned 16-bit
// number (a grade) or a string (a course name).
class CCeDBProp
{
public:
    enum Kind { Empty, UInt32, UInt16, String };

    CCeDBProp() = default;
    explicit CCeDBProp(quint32 value) { SetUInt32(value); }
    explicit CCeDBProp(const QString& value) { SetString(value); }

    void SetUInt32(quint32 value)
    {
        m_kind = UInt32;
        m_value = value;
    }
    void SetUInt16(quint16 value)
    {
        m_kind = UInt16;
        m_value = static_cast<uint>(value);
    }
    void SetString(const QString& value)
    {
        m_kind = String;
        m_value = value;
    }

    Kind GetKind() const { return m_kind; }
    const QVariant& GetValue() const { return m_value; }

private:
    Kind m_kind = Empty;
    QVariant m_value;
};
