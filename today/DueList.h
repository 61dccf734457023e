#pragma once

#include "DueItem.h"

#include <QDateTime>
#include <QString>

#include <vector>

// What the Today companion shows: the working semester's coursework that is
// not done and is due from now through the end of the `days`-th day after
// today, with everything already past due in front. Reads the mounted record
// store only; `now` is a parameter so that tests fix the clock.
class CDueList
{
public:
    static constexpr int DefaultDays = 7;

    // Nonzero on success. A read that fails says why in ErrorText() and is
    // never taken for an empty list.
    int Read(const QDateTime& now, int days);

    const std::vector<DueItem>& Items() const { return m_items; }
    QString ErrorText() const { return m_error; }

private:
    std::vector<DueItem> m_items;
    QString m_error;
};
