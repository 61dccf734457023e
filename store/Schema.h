#pragma once

#include "TableSchema.h"

#include <span>

// The layout of every record table of the database file.
namespace BrindleSchema {

// PRAGMA application_id of a Brindle database ("BRND").
constexpr int ApplicationId = 0x42524E44;
// PRAGMA user_version: raised with every change of the layout.
// 2: case-folded key columns replace the indexes on a collation of Brindle's own.
constexpr int Version = 2;
constexpr int FoldedKeysVersion = 2;
// The collation of version 1 files' name indexes; known to the connection so
// that such a file can be read until it is upgraded.
constexpr const char* LegacyCollation = "BRINDLE_NOCASE";
// A SQL function of Brindle's connection (never used in the file's schema):
// the case-folded key of a name, for the upgrade that fills the key columns.
constexpr const char* CaseFoldFunction = "brindle_casefold";

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
