#pragma once

#include <QDateTime>
#include <QString>

// One piece of coursework on the Today list.
struct DueItem
{
    quint32 courseworkId = 0;
    QString name;
    QString course;
    double dueValue = 0.0; // Brindle's stored date, kept to tell due times apart exactly
    QDateTime due;
    quint16 completed = 0;
    bool pastDue = false;
};
