#include "ClassTimeEditor.h"

#include "DateEncoding.h"
#include "TimeFormat.h"
#include "res/strings/EditorStrings.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QStringList>
#include <QTimeEdit>
#include <QToolButton>

namespace {

QString DayName(int index)
{
    switch (index) {
    case 0:
        return EditorStrings::DaySunday();
    case 1:
        return EditorStrings::DayMonday();
    case 2:
        return EditorStrings::DayTuesday();
    case 3:
        return EditorStrings::DayWednesday();
    case 4:
        return EditorStrings::DayThursday();
    case 5:
        return EditorStrings::DayFriday();
    default:
        return EditorStrings::DaySaturday();
    }
}

QString TimeText(double value)
{
    return QLocale().toString(BrindleDate::ToTime(value), CClassTimeEditor::TimeFormat());
}

} // namespace

CClassTimeEditor::CClassTimeEditor(QWidget* parent)
    : QWidget(parent), m_start(new QTimeEdit(this)), m_end(new QTimeEdit(this))
{
    setObjectName(QStringLiteral("classTimeEditor"));
    m_start->setObjectName(QStringLiteral("startTime"));
    m_end->setObjectName(QStringLiteral("endTime"));
    const QString format = TimeFormat();
    m_start->setDisplayFormat(format);
    m_end->setDisplayFormat(format);

    // Square buttons in one row, sized from the font so the captions fit.
    const int side = fontMetrics().height() * 2;
    auto* dayRow = new QHBoxLayout;
    dayRow->setSpacing(0);
    for (int i = 0; i < 7; ++i) {
        auto* button = new QToolButton(this);
        button->setObjectName(QStringLiteral("day%1").arg(i));
        button->setText(DayName(i));
        button->setCheckable(true);
        button->setFixedSize(side, side);
        m_days[static_cast<size_t>(i)] = button;
        dayRow->addWidget(button);
    }
    dayRow->addStretch();
    // A set day stands out clearly, not only by a faint sunken frame.
    setStyleSheet(QStringLiteral("QToolButton:checked { background: palette(highlight); "
                                 "color: palette(highlighted-text); }"));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(EditorStrings::LabelStartTime(), this), 0, 0);
    grid->addWidget(m_start, 0, 1);
    grid->addWidget(new QLabel(EditorStrings::LabelEndTime(), this), 1, 0);
    grid->addWidget(m_end, 1, 1);
    // The day row sits beside its label, lined up with the time pickers.
    grid->addWidget(new QLabel(EditorStrings::LabelDays(), this), 2, 0);
    grid->addLayout(dayRow, 2, 1);
    grid->setColumnStretch(1, 1);
}

void CClassTimeEditor::SetEntry(const ClassTimeEntry& entry)
{
    m_entry = entry;
    m_start->setTime(BrindleDate::ToTime(entry.start));
    m_end->setTime(BrindleDate::ToTime(entry.end));
    for (int i = 0; i < 7; ++i)
        m_days[static_cast<size_t>(i)]->setChecked(entry.days & (1u << i));
}

ClassTimeEntry CClassTimeEditor::Entry() const
{
    ClassTimeEntry entry = m_entry;
    entry.start = BrindleDate::FromTime(m_start->time());
    entry.end = BrindleDate::FromTime(m_end->time());
    entry.days = 0;
    for (int i = 0; i < 7; ++i) {
        if (m_days[static_cast<size_t>(i)]->isChecked())
            entry.days |= static_cast<quint16>(1u << i);
    }
    return entry;
}

QString CClassTimeEditor::TimeFormat()
{
    return BrindleDate::ShortTimeFormat();
}

QString CClassTimeEditor::DaysText(quint16 days)
{
    QStringList names;
    for (int i = 0; i < 7; ++i) {
        if (days & (1u << i))
            names << DayName(i);
    }
    return names.isEmpty() ? EditorStrings::NoDays() : names.join(QLatin1Char(' '));
}

QString CClassTimeEditor::RowText(const ClassTimeEntry& entry)
{
    return EditorStrings::TimeRow(DaysText(entry.days), TimeText(entry.start), TimeText(entry.end));
}
