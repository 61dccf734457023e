#pragma once

#include <QString>

#include <optional>

// The switch of the Today companion: "Enabled" in the [Today] group of
// Brindle's own settings file (INI). Non-zero means the companion shows its
// item and reads the database; while it is 0 the companion lets go of the
// database. A change of the file is the notice the companion watches for.
// No widgets, so that the companion can use it too.
class CTodaySwitch
{
public:
    // Brindle's settings file, as GetSettingsPath() names it.
    static QString DefaultFile();

    explicit CTodaySwitch(const QString& file = DefaultFile());

    QString File() const { return m_file; }

    // "Enabled" as stored; nothing when the file or the key is missing or the
    // value is not a number.
    std::optional<quint32> Enabled() const;
    // Writes "Enabled" and makes sure the file holds it; false when it cannot.
    bool SetEnabled(quint32 value);

    // Before the database is let go: remembers whether the item was on and,
    // if so, switches it off. False when the switch could not be written.
    bool SwitchOff();
    // After: switches the item on again only if it was on before. False when
    // the switch could not be written.
    bool Restore();
    bool WasOn() const { return m_wasOn; }

private:
    QString m_file;
    bool m_wasOn = false;
};
