#pragma once

#include "TableSchema.h"

#include <span>

// The layout of every record table of the database file.
namespace BrindleSchema {

// PRAGMA application_id of a Brindle database ("BRND").
constexpr int ApplicationId = 0x42524E44;
// PRAGMA user_version: raised with every change of the layout.
constexpr int Version = 1;
constexpr const char* CaseInsensitiveCollation = "BRINDLE_NOCASE";

extern const TableDef Semester;
extern const TableDef Course;
extern const TableDef CourseOrder;
extern const TableDef Coursework;
extern const TableDef CwType;
extern const TableDef CwTypeOrder;
extern const TableDef GradingPolicy;
extern const TableDef GradingPolicyGrade;
extern const TableDef GradeScale;
extern const TableDef GPAInfo;
extern const TableDef Building;
extern const TableDef Instructor;
extern const TableDef CourseInstructor;
extern const TableDef Time;
extern const TableDef Textbook;
extern const TableDef TextbookOrder;
extern const TableDef ViewTab;
extern const TableDef OutlookLink;
extern const TableDef AppState;

// Every table, in the order CreateDatabase makes them.
std::span<const TableDef* const> AllTables();

} // namespace BrindleSchema
