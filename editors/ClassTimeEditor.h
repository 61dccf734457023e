#pragma once

#include <QWidget>

#include <array>

class QTimeEdit;
class QToolButton;

// One weekly time slot of a course or of an instructor's office hours.
struct ClassTimeEntry
{
    quint32 id = 0;     // 0: not stored yet; NewEntryID: handed to the editor as new
    quint16 days = 0;   // DayOfWeek bits: 1 Sunday ... 64 Saturday
    double start = 0.0; // time of day, as the stored date encoding
    double end = 0.0;
};

// Record id an editor is handed for an entry that does not exist yet.
constexpr quint32 NewEntryID = 0xFFFFFFFF;

// The group of controls that edits one time slot: start and end pickers and
// seven day buttons, Sunday first, each shown pressed while its day is set.
class CClassTimeEditor : public QWidget
{
    Q_OBJECT

public:
    explicit CClassTimeEditor(QWidget* parent = nullptr);

    void SetEntry(const ClassTimeEntry& entry);
    // The entry handed in, with the times and days shown.
    ClassTimeEntry Entry() const;

    QTimeEdit* StartEdit() const { return m_start; }
    QTimeEdit* EndEdit() const { return m_end; }
    QToolButton* DayButton(int index) const { return m_days[static_cast<size_t>(index)]; }

    // The locale's short time format, in hours and minutes.
    static QString TimeFormat();
    // "M W F" for a day set, Sunday first.
    static QString DaysText(quint16 days);
    // The row of a time list: days, start and end.
    static QString RowText(const ClassTimeEntry& entry);

private:
    ClassTimeEntry m_entry;
    QTimeEdit* m_start;
    QTimeEdit* m_end;
    std::array<QToolButton*, 7> m_days{};
};
