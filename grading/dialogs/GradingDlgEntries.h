#pragma once

#include <QString>

// The grading policy dialog's working copies. A type entry with id 0 is not
// stored yet.
struct CwTypeEntry
{
    quint32 id = 0;
    QString name;
    double weight = 0.0;
    quint16 drops = 0;
};

struct MinimumPercentEntry
{
    quint16 grade = 0;
    double minimum = 0.0; // 0..100
    QString gradeName;
};
