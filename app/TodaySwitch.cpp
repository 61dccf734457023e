#include "TodaySwitch.h"

#include "store/SettingsFile.h"

#include <QSettings>

namespace {
const QString EnabledKey = QStringLiteral("Today/Enabled");
}

QString CTodaySwitch::DefaultFile()
{
    return GetSettingsPath();
}

CTodaySwitch::CTodaySwitch(const QString& file) : m_file(file) {}

std::optional<quint32> CTodaySwitch::Enabled() const
{
    const QSettings settings(m_file, QSettings::IniFormat);
    const QVariant value = settings.value(EnabledKey);
    if (!value.isValid())
        return std::nullopt;
    bool ok = false;
    const quint32 number = value.toUInt(&ok);
    return ok ? std::optional<quint32>(number) : std::nullopt;
}

bool CTodaySwitch::SetEnabled(quint32 value)
{
    QSettings settings(m_file, QSettings::IniFormat);
    settings.setValue(EnabledKey, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

bool CTodaySwitch::SwitchOff()
{
    const std::optional<quint32> enabled = Enabled();
    m_wasOn = enabled.value_or(0) != 0;
    return !m_wasOn || SetEnabled(0);
}

bool CTodaySwitch::Restore()
{
    return !m_wasOn || SetEnabled(1);
}
