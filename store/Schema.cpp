#include "Schema.h"

#include "AppStateTable.h"
#include "BuildingTable.h"
#include "CourseInstructorTable.h"
#include "CourseOrderTable.h"
#include "CourseTable.h"
#include "CourseworkTable.h"
#include "CwTypeOrderTable.h"
#include "CwTypeTable.h"
#include "GPAInfoTable.h"
#include "GradeScaleTable.h"
#include "GradingPolicyGradeTable.h"
#include "GradingPolicyTable.h"
#include "InstructorTable.h"
#include "OutlookTable.h"
#include "SemesterTable.h"
#include "TextbookOrderTable.h"
#include "TextbookTable.h"
#include "TimeTable.h"
#include "ViewTabTable.h"

namespace BrindleSchema {

namespace {
constexpr FieldDef SemesterFields[] = {{"SemesterName", FieldType::String},
                                       {"EndDate", FieldType::Double}};
constexpr int SemesterSorts[] = {RecordIdKey};
constexpr FieldDef CourseFields[] = {
    {"CourseName", FieldType::String},    {"CurrentGrade", FieldType::Double},
    {"CourseNumber", FieldType::String},  {"CourseSection", FieldType::String},
    {"Department", FieldType::String},    {"RoomNumber", FieldType::String},
    {"CourseWebSite", FieldType::String}, {"Details", FieldType::String},
    {"BuildingID", FieldType::UInt32},    {"CourseHours", FieldType::Double},
    {"InMajor", FieldType::Bool}};
constexpr int CourseSorts[] = {CCourseTable::PropCourseName, CCourseTable::PropBuildingID,
                               RecordIdKey};
constexpr FieldDef CourseOrderFields[] = {{"SemesterID", FieldType::UInt32},
                                          {"CourseID", FieldType::UInt32},
                                          {"CoursePosition", FieldType::UInt16}};
constexpr int CourseOrderSorts[] = {RecordIdKey, CCourseOrderTable::PropCourseID,
                                    CCourseOrderTable::PropSemesterID};
constexpr FieldDef CourseworkFields[] = {
    {"CourseworkName", FieldType::String}, {"Details", FieldType::String},
    {"CourseID", FieldType::UInt32},       {"CwTypeID", FieldType::UInt32},
    {"TextbookID", FieldType::UInt32},     {"DueDate", FieldType::Double},
    {"Score", FieldType::Double},          {"Possible", FieldType::Double},
    {"Weight", FieldType::Double},         {"Completed", FieldType::UInt16}};
constexpr int CourseworkSorts[] = {CCourseworkTable::PropCourseID,
                                   CCourseworkTable::PropCourseID,
                                   CCourseworkTable::PropTextbookID,
                                   CCourseworkTable::PropDueDate,
                                   CCourseworkTable::PropCourseworkName,
                                   CCourseworkTable::PropCompleted,
                                   RecordIdKey,
                                   CCourseworkTable::PropCwTypeID};
constexpr FieldDef CwTypeFields[] = {{"CourseID", FieldType::UInt32},
                                     {"CwTypeName", FieldType::String},
                                     {"Weight", FieldType::Double},
                                     {"Drops", FieldType::UInt16}};
constexpr int CwTypeSorts[] = {CCwTypeTable::PropCourseID, RecordIdKey};
constexpr FieldDef CwTypeOrderFields[] = {{"CourseID", FieldType::UInt32},
                                          {"CwTypeID", FieldType::UInt32},
                                          {"CwTypePosition", FieldType::Int16}};
constexpr int CwTypeOrderSorts[] = {CCwTypeOrderTable::PropCwTypeID,
                                    CCwTypeOrderTable::PropCourseID, RecordIdKey};
constexpr FieldDef GradingPolicyFields[] = {{"CourseID", FieldType::UInt32},
                                            {"WeightType", FieldType::UInt32}};
constexpr int GradingPolicySorts[] = {CGradingPolicyTable::PropCourseID, RecordIdKey};
constexpr FieldDef GradingPolicyGradeFields[] = {{"CourseID", FieldType::UInt32},
                                                 {"Grade", FieldType::UInt16},
                                                 {"MinimumPercent", FieldType::Double}};
constexpr int GradingPolicyGradeSorts[] = {CGradingPolicyGradeTable::PropCourseID, RecordIdKey};
constexpr FieldDef GradeScaleFields[] = {{"Grade", FieldType::UInt16},
                                         {"GradeName", FieldType::String},
                                         {"GradePoints", FieldType::Double}};
constexpr int GradeScaleSorts[] = {CGradeScaleTable::PropGrade, RecordIdKey};
constexpr FieldDef GPAInfoFields[] = {{"TotalPastHours", FieldType::Double},
                                      {"TotalPastPoints", FieldType::Double},
                                      {"WeightedByCourseHours", FieldType::Bool}};
constexpr int GPAInfoSorts[] = {RecordIdKey};
constexpr FieldDef BuildingFields[] = {{"BuildingName", FieldType::String}};
constexpr int BuildingSorts[] = {RecordIdKey, CBuildingTable::PropBuildingName};
constexpr FieldDef InstructorFields[] = {{"InstructorName", FieldType::String},
                                         {"Email", FieldType::String},
                                         {"PhoneNumber", FieldType::String},
                                         {"RoomNumber", FieldType::String},
                                         {"BuildingID", FieldType::UInt32}};
constexpr int InstructorSorts[] = {RecordIdKey, CInstructorTable::PropBuildingID,
                                   CInstructorTable::PropInstructorName};
constexpr FieldDef CourseInstructorFields[] = {{"CourseID", FieldType::UInt32},
                                               {"InstructorID", FieldType::UInt32}};
constexpr int CourseInstructorSorts[] = {CCourseInstructorTable::PropInstructorID,
                                         CCourseInstructorTable::PropCourseID, RecordIdKey};
constexpr FieldDef TimeFields[] = {{"ForeignRecordID", FieldType::UInt32},
                                   {"DayOfWeek", FieldType::UInt16},
                                   {"StartTime", FieldType::Double},
                                   {"EndTime", FieldType::Double}};
constexpr int TimeSorts[] = {CTimeTable::PropForeignRecordID, RecordIdKey};
constexpr FieldDef TextbookFields[] = {{"CourseID", FieldType::UInt32},
                                       {"TextbookName", FieldType::String},
                                       {"Author", FieldType::String},
                                       {"Cost", FieldType::Double}};
constexpr int TextbookSorts[] = {CTextbookTable::PropCourseID, RecordIdKey};
constexpr FieldDef TextbookOrderFields[] = {{"CourseID", FieldType::UInt32},
                                            {"TextbookID", FieldType::UInt32},
                                            {"TextbookPosition", FieldType::UInt16}};
constexpr int TextbookOrderSorts[] = {CTextbookOrderTable::PropTextbookID,
                                      CTextbookOrderTable::PropCourseID, RecordIdKey};
constexpr FieldDef ViewTabFields[] = {{"ViewTabID", FieldType::UInt32},
                                      {"TabText", FieldType::String},
                                      {"IsVisible", FieldType::Bool},
                                      {"TabOrder", FieldType::Int16}};
constexpr int ViewTabSorts[] = {RecordIdKey, CViewTabTable::PropViewTabID,
                                CViewTabTable::PropTabOrder};
constexpr FieldDef OutlookLinkFields[] = {{"BrindleItemID", FieldType::UInt32},
                                          {"OutlookItemID", FieldType::UInt32},
                                          {"ItemType", FieldType::UInt32}};
constexpr int OutlookLinkSorts[] = {COutlookTable::PropOutlookItemID,
                                    COutlookTable::PropBrindleItemID, RecordIdKey};
constexpr FieldDef AppStateFields[] = {
    {"CurrentSemesterID", FieldType::UInt32}, {"CurrentCourseID", FieldType::UInt32},
    {"CurrentTabID", FieldType::UInt32},      {"ViewTabDueBy", FieldType::Double},
    {"ViewTabCwType", FieldType::UInt32},     {"ShowDone", FieldType::Bool},
    {"ShowGPAWithHours", FieldType::Bool}};
constexpr int AppStateSorts[] = {RecordIdKey, CAppStateTable::PropCurrentSemesterID,
                                 CAppStateTable::PropCurrentCourseID,
                                 CAppStateTable::PropViewTabCwType};
} // namespace

const TableDef Semester{"Semester", SemesterFields, SemesterSorts};
const TableDef Course{"Course", CourseFields, CourseSorts};
const TableDef CourseOrder{"CourseOrder", CourseOrderFields, CourseOrderSorts};
const TableDef Coursework{"Coursework", CourseworkFields, CourseworkSorts};
const TableDef CwType{"CwType", CwTypeFields, CwTypeSorts};
const TableDef CwTypeOrder{"CwTypeOrder", CwTypeOrderFields, CwTypeOrderSorts};
const TableDef GradingPolicy{"GradingPolicy", GradingPolicyFields, GradingPolicySorts};
const TableDef GradingPolicyGrade{"GradingPolicyGrade", GradingPolicyGradeFields,
                                  GradingPolicyGradeSorts};
const TableDef GradeScale{"GradeScale", GradeScaleFields, GradeScaleSorts};
const TableDef GPAInfo{"GPAInfo", GPAInfoFields, GPAInfoSorts};
const TableDef Building{"Building", BuildingFields, BuildingSorts};
const TableDef Instructor{"Instructor", InstructorFields, InstructorSorts};
const TableDef CourseInstructor{"CourseInstructor", CourseInstructorFields, CourseInstructorSorts};
const TableDef Time{"Time", TimeFields, TimeSorts};
const TableDef Textbook{"Textbook", TextbookFields, TextbookSorts};
const TableDef TextbookOrder{"TextbookOrder", TextbookOrderFields, TextbookOrderSorts};
const TableDef ViewTab{"ViewTab", ViewTabFields, ViewTabSorts};
const TableDef OutlookLink{"OutlookLink", OutlookLinkFields, OutlookLinkSorts};
const TableDef AppState{"AppState", AppStateFields, AppStateSorts};

std::span<const TableDef* const> AllTables()
{
    static const TableDef* const tables[] = {
        &Semester,      &Course,        &CourseOrder,        &Coursework, &CwType,
        &CwTypeOrder,   &GradingPolicy, &GradingPolicyGrade, &GradeScale, &GPAInfo,
        &Building,      &Instructor,    &CourseInstructor,   &Time,       &Textbook,
        &TextbookOrder, &ViewTab,       &OutlookLink,        &AppState,
    };
    return tables;
}

} // namespace BrindleSchema
