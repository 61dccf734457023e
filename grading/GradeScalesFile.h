#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// One grade of a scale; its place in the list is its grade number.
struct GradeScaleEntry
{
    QString name;
    double points = 0.0;
};

struct GradeScale
{
    QString name;
    std::vector<GradeScaleEntry> grades;
};

// The predefined scales of "GradeScales.txt": one comma-separated stream of
// the scale count, then per scale its name, its grade count and each grade's
// name and points. Never fails: whatever the bytes, it returns the scales it
// could read. A scale cut short by the end of the bytes keeps the grades it
// read whole (a grade name without its points is left out); every count is
// bounded by the fields actually present. Line feeds and carriage returns at
// the very end (the last line's end, as editors write it) are not read.
std::vector<GradeScale> ParseGradeScales(const QByteArray& bytes);

// Reads GradeScales.txt from the installation folder; none when it is missing.
std::vector<GradeScale> LoadPredefinedGradeScales();
