#pragma once

#include <QString>

#include <vector>

// What the grade calculation reads of a course, read once so that the same
// calculation can be run many times (the grade planner tries thousands of
// scores) without going back to the database.

struct CourseworkFacts
{
    quint32 id = 0;
    quint32 cwTypeId = 0;
    QString name; // read only when asked for
    double score = -1.0;
    double possible = -1.0;
    double weight = 0.0;
    quint16 completed = 0;
};

// One coursework type with its coursework in the table's index order.
struct CwTypeFacts
{
    quint32 id = 0;
    bool found = false; // the type record exists; a missing one sums to nothing
    QString name;
    double weight = 0.0;
    quint16 drops = 0;
    std::vector<CourseworkFacts> coursework;
};

struct CourseFacts
{
    quint32 courseId = 0;
    quint32 weighting = 0;
    std::vector<CwTypeFacts> types; // in the course's type order
    bool readOk = true;             // false when a table could not be read
};

// withNames also reads the coursework names (for texts that list them).
CwTypeFacts LoadCwTypeFacts(quint32 cwTypeId, bool withNames = false, bool* readOk = nullptr);
CourseFacts LoadCourseFacts(quint32 courseId, bool withNames = false);

// The course's minimum percents indexed by grade number; a gap counts as 0.0.
std::vector<double> LoadMinimumPercents(quint32 courseId);
