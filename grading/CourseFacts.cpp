#include "CourseFacts.h"

#include "CeDBProp.h"
#include "CourseworkTable.h"
#include "CwTypeTable.h"
#include "GradeCalculation.h"
#include "GradingPolicyGradeTable.h"
#include "GradingPolicyTable.h"

namespace {
// Sort order 7 of CCourseworkTable: its index on the coursework type id.
constexpr quint16 CourseworkByCwType = 7;
// Sort order 0 of CGradingPolicyGradeTable: CourseID.
constexpr quint16 MinimumByCourse = 0;
} // namespace

CwTypeFacts LoadCwTypeFacts(quint32 cwTypeId, bool withNames, bool* readOk)
{
    CwTypeFacts facts;
    facts.id = cwTypeId;
    CCwTypeTable type;
    if (!type.Open()) {
        if (readOk)
            *readOk = false;
        return facts;
    }
    if (!type.MoveToRecord(cwTypeId))
        return facts;
    facts.found = true;
    facts.name = type.GetCwTypeName();
    facts.weight = type.GetWeight();
    facts.drops = type.GetDrops();
    type.Close();

    CCourseworkTable coursework;
    if (!coursework.Open(CourseworkByCwType)) {
        if (readOk)
            *readOk = false;
        return facts;
    }
    const CCeDBProp key(cwTypeId);
    coursework.SetSeekValue(&key, CDataTable::SeekValueEqual);
    if (withNames)
        coursework.SetFilter(6, CCourseworkTable::PropCwTypeID, CCourseworkTable::PropScore,
                             CCourseworkTable::PropPossible, CCourseworkTable::PropWeight,
                             CCourseworkTable::PropCompleted, CCourseworkTable::PropCourseworkName);
    else
        coursework.SetFilter(5, CCourseworkTable::PropCwTypeID, CCourseworkTable::PropScore,
                             CCourseworkTable::PropPossible, CCourseworkTable::PropWeight,
                             CCourseworkTable::PropCompleted);
    for (int ok = coursework.MoveFirst(1); ok; ok = coursework.MoveNext(1)) {
        CourseworkFacts item;
        item.id = coursework.GetRecordID();
        item.cwTypeId = coursework.GetCwTypeID();
        if (withNames)
            item.name = coursework.GetCourseworkName();
        item.score = coursework.GetScore();
        item.possible = coursework.GetPossible();
        item.weight = coursework.GetWeight();
        item.completed = coursework.GetCompleted();
        facts.coursework.push_back(std::move(item));
    }
    return facts;
}

CourseFacts LoadCourseFacts(quint32 courseId, bool withNames)
{
    CourseFacts facts;
    facts.courseId = courseId;
    facts.weighting = CGradingPolicyTable::GetWeightingFromCourseID(courseId);
    CourseTypeList types;
    LoadCourseTypes(courseId, types);
    facts.types.reserve(types.size());
    for (const auto& [typeId, position] : types) {
        Q_UNUSED(position);
        facts.types.push_back(LoadCwTypeFacts(typeId, withNames, &facts.readOk));
    }
    return facts;
}

std::vector<double> LoadMinimumPercents(quint32 courseId)
{
    std::vector<double> minimum;
    CGradingPolicyGradeTable rows;
    if (!rows.Open(MinimumByCourse))
        return minimum;
    const CCeDBProp key(courseId);
    rows.SetSeekValue(&key, CDataTable::SeekValueEqual);
    rows.SetFilter(2, CGradingPolicyGradeTable::PropGrade,
                   CGradingPolicyGradeTable::PropMinimumPercent);
    for (int ok = rows.MoveFirst(1); ok; ok = rows.MoveNext(1)) {
        const quint16 grade = rows.GetGrade();
        if (grade >= minimum.size())
            minimum.resize(size_t(grade) + 1, 0.0);
        minimum[grade] = rows.GetMinimumPercent();
    }
    return minimum;
}
