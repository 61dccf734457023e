#pragma once

#include <QStringList>

// Small builders of records for tests; each writes one record (and what it
// needs to be found) and returns its id.
namespace Records {

// A course with its course order row in the semester.
quint32 Course(const QString& name, quint32 semesterId = 0, double currentGrade = -1.0);
quint32 CwType(quint32 courseId, const QString& name, double weight = 0.0, quint16 drops = 0,
               qint16 position = -1);
quint32 Coursework(quint32 courseId, quint32 cwTypeId, const QString& name, double score = -1.0,
                   double possible = -1.0, double dueDate = 0.0, quint16 completed = 0,
                   double weight = 0.0);
void Policy(quint32 courseId, quint32 weighting);
void MinimumPercent(quint32 courseId, quint16 grade, double minimum);
quint32 Semester(const QString& name);

// How many records a table holds, by its SQL name.
int Count(const char* table);
// The rows an SQL query on the mounted database gives, columns joined by '|'.
QStringList Rows(const QByteArray& sql);

} // namespace Records
