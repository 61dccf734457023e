#pragma once
// Courses built for the grading tests (coursework by type, minimum percents,
// hours and the in-major flag) and what the tests read back.
#include "store/BrindleData.h"
#include "support/Records.h"

#include <QMetaType>

#include <vector>

namespace Fixture {

struct Item
{
    double score; // -1.0: not graded
    double possible;
    double weight = 0.0;
};

struct Type
{
    double weight;
    quint16 drops;
    std::vector<Item> items;
};

using Course = std::vector<Type>;
using Minimums = QList<double>; // by grade number

inline const Minimums abcd{90, 80, 70, 60};

inline void SetMinimums(quint32 courseId, const Minimums& minimums)
{
    for (qsizetype g = 0; g < minimums.size(); ++g)
        Records::MinimumPercent(courseId, static_cast<quint16>(g), minimums[g]);
}

// A course's minimum percents in grade order.
inline Minimums StoredMinimums(quint32 courseId)
{
    Minimums minimums;
    for (const QString& row : Records::Rows("SELECT MinimumPercent FROM GradingPolicyGrade WHERE "
                                            "CourseID = " +
                                            QByteArray::number(courseId) + " ORDER BY Grade"))
        minimums << row.toDouble();
    return minimums;
}

// A course with a stored grade, by default with the minimums 90/80/70/60 of
// the default scale's A to D.
inline quint32 GradedCourse(const QString& name, double grade, double hours = 3.0,
                            bool inMajor = true, quint32 semester = WorkingSemesterID,
                            const Minimums& minimums = abcd)
{
    const quint32 id = Records::Course(name, semester, grade);
    CDataTable::GetMount()->Execute("UPDATE Course SET CourseHours = " + QByteArray::number(hours) +
                                    ", InMajor = " + QByteArray::number(int(inMajor)) +
                                    " WHERE id = " + QByteArray::number(id));
    SetMinimums(id, minimums);
    return id;
}

// A course with its policy, types and coursework; returns its id.
inline quint32 MakeCourse(quint32 weighting, const Course& types, const Minimums& minimums = abcd,
                          double hours = 3.0)
{
    CTransaction transaction;
    const quint32 courseId =
        GradedCourse(QStringLiteral("Course"), -1.0, hours, true, WorkingSemesterID, minimums);
    Records::Policy(courseId, weighting);
    int n = 0;
    for (const Type& type : types) {
        const quint32 typeId =
            Records::CwType(courseId, QStringLiteral("Type %1").arg(++n), type.weight, type.drops);
        for (const Item& item : type.items)
            Records::Coursework(courseId, typeId, QStringLiteral("Item"), item.score, item.possible,
                                0.0, 0, item.weight);
    }
    transaction.Commit();
    return courseId;
}

// Makes SQLite refuse one step ("INSERT ON CwType") with the reason "refused".
inline bool Refuse(const QByteArray& step)
{
    return CDataTable::GetMount()->Execute("CREATE TRIGGER Refuse BEFORE " + step +
                                           " BEGIN SELECT RAISE(ABORT, 'refused'); END");
}

} // namespace Fixture

Q_DECLARE_METATYPE(Fixture::Course)
