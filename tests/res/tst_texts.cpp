// Every text a student sees that must read exactly so: the string table against
// the literal texts, once, so that other tests may compare with the string
// table's functions. A text with arguments is filled with sample values by
// hand; old wordings stay as they are ("databaes", "add and coursework types").
// Faults tried and caught: a one-letter typo in two texts of the string table,
// "Failed to create Tsak!" and "Are you sure you want to delete the instuctor?".
#include "res/strings/AppStrings.h"
#include "res/strings/ControlStrings.h"
#include "res/strings/CourseworkStrings.h"
#include "res/strings/DatabaseStrings.h"
#include "res/strings/EditorStrings.h"
#include "res/strings/ExportStrings.h"
#include "res/strings/GradingPolicyStrings.h"
#include "res/strings/GradingStrings.h"
#include "res/strings/MaintenanceStrings.h"
#include "res/strings/ReportStrings.h"
#include "res/strings/StoreStrings.h"
#include "res/strings/ViewStrings.h"

#include <QtTest>

using namespace Qt::StringLiterals;

// One row: named by the call, what the string table says, what it must say.
#define ROW(shown, required) QTest::newRow(#shown) << QString(shown) << QString(required)

class TestTexts : public QObject
{
    Q_OBJECT

private slots:
    void readsToTheLetter_data()
    {
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("required");
        // The application, its menus and the main view.
        ROW(AppStrings::AppTitle(), u"Brindle"_s);
        ROW(AppStrings::MenuCourse(), u"Course"_s);
        ROW(AppStrings::MenuTools(), u"Tools"_s);
        ROW(AppStrings::MenuPrediction(), u"Prediction"_s);
        ROW(AppStrings::NewCourse(), u"New Course..."_s);
        ROW(AppStrings::SortCourses(), u"Sort Courses..."_s);
        ROW(AppStrings::DeleteCourse(), u"Delete Course..."_s);
        ROW(AppStrings::ProgressReport(), u"Progress Report..."_s);
        ROW(AppStrings::AddCoursework(), u"Add Coursework..."_s);
        ROW(AppStrings::EditCourse(), u"Edit Course..."_s);
        ROW(AppStrings::EditInstructors(), u"Edit Instructors..."_s);
        ROW(AppStrings::EditGradingPolicy(), u"Edit Grading Policy..."_s);
        ROW(AppStrings::AboutBrindle(), u"About Brindle..."_s);
        ROW(AppStrings::Database(), u"Database..."_s);
        ROW(AppStrings::Semester(), u"Semester..."_s);
        ROW(AppStrings::TabOrder(), u"Tab Order..."_s);
        ROW(AppStrings::Buildings(), u"Buildings..."_s);
        ROW(AppStrings::AllInstructors(), u"All Instructors..."_s);
        ROW(AppStrings::Institution(), u"Institution..."_s);
        ROW(AppStrings::ReportCard(), u"Report Card..."_s);
        ROW(AppStrings::PredictionOptions(), u"Options..."_s);
        ROW(AppStrings::ToggleGradePrediction(), u"Toggle Grade Prediction"_s);
        ROW(AppStrings::TurnOn(), u"Turn On"_s);
        ROW(AppStrings::TurnOff(), u"Turn Off"_s);
        ROW(AppStrings::ShowDone(), u"Show Done"_s);
        ROW(StoreStrings::TabNoFilter(), u"No Filter"_s);
        ROW(StoreStrings::TabCwType(), u"Cw Type"_s);
        ROW(StoreStrings::TabPastDue(), u"Past Due"_s);
        ROW(StoreStrings::TabCourseWeek(), u"Course Week"_s);
        ROW(StoreStrings::TabDueBy(), u"Due By"_s);
        ROW(ViewStrings::AllCourses(), u"All Courses"_s);
        ROW(ViewStrings::DeleteCoursework(), u"Delete Coursework"_s);
        ROW(ViewStrings::ConfirmDeleteCoursework(),
            u"Are you sure you want to delete this coursework?"_s);
        ROW(ViewStrings::UnofficialScore(), u"Unofficial score from Grade Prediction Mode"_s);
        ROW(ViewStrings::GpaValue(u"3.25"_s), u"GPA: 3.25"_s);
        ROW(ViewStrings::GpaNone(), u"GPA:"_s);
        ROW(ViewStrings::GradeNone(), u"Grade: --"_s);
        ROW(ViewStrings::GradePredictionMode(), u"Grade Prediction Mode"_s);
        ROW(ViewStrings::ArchivedSemester(), u"Archived Semester"_s);
        ROW(ViewStrings::ExitGradePredictionMode(), u"Exit Grade Prediction Mode"_s);
        ROW(ViewStrings::ExitArchivedSemester(), u"Exit Archived Semester"_s);
        // Shared captions, buttons and labels.
        ROW(ControlStrings::ConfirmDelete(), u"Confirm Delete"_s);
        ROW(ControlStrings::Delete(), u"Delete"_s);
        ROW(ControlStrings::MoveUp(), u"Move Up"_s);
        ROW(ControlStrings::MoveDown(), u"Move Down"_s);
        ROW(ControlStrings::NameLabel(), u"Name: "_s);
        ROW(ControlStrings::WeightLabel(), u"Weight: "_s);
        ROW(ControlStrings::NoScore(), u"No Score"_s);
        ROW(ControlStrings::Gpa(), u"GPA"_s);
        ROW(ControlStrings::GradeWithName(u"100"_s, u"A"_s), u"Grade: 100% A"_s);
        // Grading policy and coursework types.
        ROW(GradingStrings::DefaultCwTypeName(), u"Homework"_s);
        ROW(GradingPolicyStrings::Caption(), u"Grading Policy"_s);
        ROW(GradingPolicyStrings::PageCwTypes(), u"Cw Types"_s);
        ROW(GradingPolicyStrings::PageWeighting(), u"Weighting"_s);
        ROW(GradingPolicyStrings::PageGrading(), u"Grading"_s);
        ROW(GradingPolicyStrings::TypesHint(),
            u"Tap and hold in the list below to add and coursework types."_s);
        ROW(GradingPolicyStrings::NewCwType(), u"New Cw Type"_s);
        ROW(GradingPolicyStrings::EditCwType(), u"Edit Cw Type"_s);
        ROW(GradingPolicyStrings::DeleteCwType(), u"Delete Cw Type"_s);
        ROW(GradingPolicyStrings::TypeDrops(), u"Drops: "_s);
        ROW(GradingPolicyStrings::WeightingHeading(), u"Weighting used in Grade Calculation"_s);
        ROW(GradingPolicyStrings::WeightingNone(), u"None"_s);
        ROW(GradingPolicyStrings::WeightingByType(), u"By Type"_s);
        ROW(GradingPolicyStrings::WeightingPerItem(), u"Per Item"_s);
        ROW(GradingPolicyStrings::MinimumHeading(), u"Minimum Percent for Grade"_s);
        ROW(GradingPolicyStrings::MinimumPrompt(),
            u"Enter the minimum score required to receive the grade"_s);
        ROW(GradingPolicyStrings::EditMinimumPercent(), u"Edit Minimum Percent"_s);
        // Grade prediction, the progress report, the institution, the report card.
        ROW(ReportStrings::GradePredictionTitle(), u"Grade Prediction"_s);
        ROW(ReportStrings::PredictionPrompt(),
            u"Enter score each non-graded coursework will receive"_s);
        ROW(ReportStrings::EditPercent(), u"Edit Percent"_s);
        ROW(ReportStrings::ClearPercent(), u"Clear Percent"_s);
        ROW(ReportStrings::ScoreToGiveLabel(), u"Score to Give: "_s);
        ROW(ControlStrings::Percent(u"87.50"_s), u"87.50%"_s);
        ROW(ReportStrings::ProgressReportTitle(), u"Progress Report"_s);
        ROW(ReportStrings::CompletedOf(3, 5), u"3 of 5 completed"_s);
        ROW(ReportStrings::NoMark(), u"-"_s);
        ROW(ReportStrings::PercentAndGrade(u"92.5"_s, u"A-"_s), u"92.5% A-"_s);
        ROW(ReportStrings::NoCourseworks(), u"No Courseworks"_s);
        ROW(ReportStrings::CourseworksCompleted(0, 12), u"0 of 12 courseworks completed"_s);
        ROW(ReportStrings::TopGrade(), u"A+"_s);
        ROW(ReportStrings::InstitutionTitle(), u"Institution Info"_s);
        ROW(ReportStrings::GradeScalePage(), u"Grade Scale"_s);
        ROW(ReportStrings::GradeScalePrompt(), u"Set the grade points for the grade scale"_s);
        ROW(ReportStrings::GradeScalesLabel(), u"Grade Scales: "_s);
        ROW(ReportStrings::CurrentScale(), u"Current"_s);
        ROW(ReportStrings::CustomScale(), u"Custom"_s);
        ROW(ReportStrings::ShowGpaWithHours(), u"Show GPA With Hours"_s);
        ROW(ReportStrings::TotalHours(), u"Total Hours "_s);
        ROW(ReportStrings::TotalPoints(), u"Total Points "_s);
        ROW(ReportStrings::PastGpa(), u"Past GPA"_s);
        ROW(ReportStrings::PastGpaValue(2.5), u"2.50"_s);
        ROW(ReportStrings::NewGradePointTitle(), u"New Grade Point"_s);
        ROW(ReportStrings::EditGradePointTitle(), u"Edit Grade Point"_s);
        ROW(ReportStrings::GradePointName(), u"Grade Point Name"_s);
        ROW(ReportStrings::GradePoints(), u"Grade Points: "_s);
        ROW(ReportStrings::ReportCardTitle(), u"Report Card"_s);
        ROW(ReportStrings::MajorGpaLabel(), u"Maj GPA"_s);
        ROW(ReportStrings::CumulativeGpaLabel(), u"Cum. GPA"_s);
        ROW(ReportStrings::GpaLine(u"GPA"_s, 3.25), u"GPA: 3.250"_s);
        ROW(ReportStrings::GpaLineEmpty(u"Maj GPA"_s), u"Maj GPA:"_s);
        ROW(ReportStrings::AllCourseGrades(), u"All course grade information"_s);
        // The course editor, its textbooks and meeting times, the removal of a course.
        ROW(EditorStrings::NewCourseTitle(), u"New Course"_s);
        ROW(EditorStrings::EditCourseTitle(), u"Edit Course"_s);
        ROW(EditorStrings::PageBasicInfo(), u"Basic Info"_s);
        ROW(EditorStrings::PageBooks(), u"Books"_s);
        ROW(EditorStrings::PageTimes(), u"Times"_s);
        ROW(EditorStrings::PageRoom(), u"Room"_s);
        ROW(EditorStrings::LabelNumber(), u"Number: "_s);
        ROW(EditorStrings::LabelSection(), u"Section: "_s);
        ROW(EditorStrings::LabelDept(), u"Dept: "_s);
        ROW(EditorStrings::LabelHours(), u"Hours: "_s);
        ROW(EditorStrings::InMajor(), u"In Major"_s);
        ROW(EditorStrings::BooksHint(),
            u"Tap and hold in the list below to add and edit textbooks."_s);
        ROW(EditorStrings::TimesHint(), u"Tap and hold in the list below to add and edit times."_s);
        ROW(EditorStrings::LabelBuilding(), u"Building: "_s);
        ROW(EditorStrings::LabelRoomNumber(), u"Room Number: "_s);
        ROW(EditorStrings::LabelWebSite(), u"Web Site: "_s);
        ROW(EditorStrings::MenuAdvanced(), u"Advanced"_s);
        ROW(EditorStrings::Grading(), u"Grading..."_s);
        ROW(EditorStrings::Instructor(), u"Instructor..."_s);
        ROW(EditorStrings::Details(), u"Details..."_s);
        ROW(EditorStrings::CourseDetailsTitle(), u"Course Details"_s);
        ROW(EditorStrings::NoCourseName(), u"You must supply a course name."_s);
        ROW(EditorStrings::DuplicateCourseName(u"Biology"_s),
            u"A course with the name 'Biology' already exists.\nPlease enter a new course name."_s);
        ROW(EditorStrings::NewTextbook(), u"New Textbook"_s);
        ROW(EditorStrings::EditTextbook(), u"Edit Textbook"_s);
        ROW(EditorStrings::DeleteTextbook(), u"Delete Textbook"_s);
        ROW(EditorStrings::LabelAuthor(), u"Author: "_s);
        ROW(EditorStrings::LabelCost(), u"Cost: "_s);
        ROW(EditorStrings::NewTime(), u"New Time"_s);
        ROW(EditorStrings::EditTime(), u"Edit Time"_s);
        ROW(EditorStrings::DeleteTime(), u"Delete Time"_s);
        ROW(EditorStrings::LabelStartTime(), u"Start Time: "_s);
        ROW(EditorStrings::LabelEndTime(), u"End Time: "_s);
        ROW(EditorStrings::LabelDays(), u"Days: "_s);
        ROW(EditorStrings::DaySunday(), u"Su"_s);
        ROW(EditorStrings::DayMonday(), u"M"_s);
        ROW(EditorStrings::DayTuesday(), u"Tu"_s);
        ROW(EditorStrings::DayWednesday(), u"W"_s);
        ROW(EditorStrings::DayThursday(), u"Th"_s);
        ROW(EditorStrings::DayFriday(), u"F"_s);
        ROW(EditorStrings::DaySaturday(), u"Sa"_s);
        ROW(EditorStrings::ConfirmDeleteCourse(u"Biology"_s),
            u"Are you sure you want to delete the course 'Biology'?"_s);
        // The coursework editor.
        ROW(CourseworkStrings::NewCoursework(), u"New Coursework"_s);
        ROW(CourseworkStrings::EditCoursework(), u"Edit Coursework"_s);
        ROW(CourseworkStrings::AddCourseworkTo(), u"Add Coursework To..."_s);
        ROW(CourseworkStrings::PageInfo(), u"Coursework Info"_s);
        ROW(CourseworkStrings::PageDetails(), u"Details"_s);
        ROW(CourseworkStrings::CwType(), u"Cw Type: "_s);
        ROW(CourseworkStrings::DueDate(), u"Due Date: "_s);
        ROW(CourseworkStrings::Score(), u"Score: "_s);
        ROW(CourseworkStrings::OutOf(), u"Out Of"_s);
        ROW(CourseworkStrings::Textbook(), u"Textbook: "_s);
        ROW(CourseworkStrings::NoTextbook(), u"No Textbook"_s);
        ROW(CourseworkStrings::Progress(), u"Progress: "_s);
        ROW(CourseworkStrings::ProgressPercent(75), u"75%"_s);
        ROW(CourseworkStrings::MenuAdd(), u"Add"_s);
        ROW(CourseworkStrings::AddCwType(), u"Cw Type..."_s);
        ROW(CourseworkStrings::AddTextbook(), u"Textbook..."_s);
        ROW(CourseworkStrings::NameEmpty(), u"Coursework name empty."_s);
        // Instructors and buildings.
        ROW(EditorStrings::InstructorsTitle(), u"Edit Instructors"_s);
        ROW(EditorStrings::CurrentInstructors(), u"Current Instructors"_s);
        ROW(EditorStrings::PageOfficeHours(), u"Office Hours"_s);
        ROW(EditorStrings::LabelPhone(), u"Phone: "_s);
        ROW(EditorStrings::LabelEmail(), u"Email: "_s);
        ROW(EditorStrings::MenuNew(), u"New"_s);
        ROW(EditorStrings::FromPrevious(), u"From Previous..."_s);
        ROW(EditorStrings::BrandNew(), u"Brand New"_s);
        ROW(EditorStrings::CurrentInstructor(), u"Current Instructor"_s);
        ROW(EditorStrings::EnterName(), u"(Enter Name)"_s);
        ROW(EditorStrings::InstructorInUse(),
            u"Another course is currently using this instructor.\nContinue with Delete?"_s);
        ROW(EditorStrings::ConfirmDeleteInstructor(),
            u"Are you sure you want to delete the instructor?"_s);
        ROW(EditorStrings::BuildingsTitle(), u"Buildings"_s);
        ROW(EditorStrings::NewBuilding(), u"New Building"_s);
        ROW(EditorStrings::EditBuilding(), u"Edit Building"_s);
        ROW(EditorStrings::DeleteBuilding(), u"Delete Building"_s);
        ROW(EditorStrings::BuildingNameCaption(), u"Building Name:"_s);
        // Export to tasks, calendar and contacts.
        ROW(ExportStrings::MenuExport(), u"Export"_s);
        ROW(ExportStrings::Tasks(), u"Tasks"_s);
        ROW(ExportStrings::Calendar(), u"Calendar"_s);
        ROW(ExportStrings::Contacts(), u"Contacts"_s);
        ROW(ExportStrings::TaskCreateFailed(), u"Failed to create Task!"_s);
        ROW(ExportStrings::AppointmentCreateFailed(), u"Failed to create appointment!"_s);
        ROW(ExportStrings::ContactCreateFailed(), u"Failed to create Contact!"_s);
        ROW(ExportStrings::OfficeLocation(u"214"_s, u"Science Hall"_s), u"214 Science Hall"_s);
        ROW(ExportStrings::OfficeHoursHeading(), u"Office Hours:\r\n"_s);
        ROW(ExportStrings::OfficeHourLine(u"10:00"_s, u"10:50"_s, u"MW"_s),
            u"10:00 - 10:50 on MW"_s);
        ROW(ExportStrings::OfficeHourLine(u"9:00"_s, u"9:50"_s, QString()), u"9:00 - 9:50 on "_s);
        // Semesters, database maintenance, course order and tab order.
        ROW(MaintenanceStrings::SemesterTitle(), u"Semester Information"_s);
        ROW(MaintenanceStrings::SemesterNameLabel(), u"Semester Name: "_s);
        ROW(MaintenanceStrings::ArchiveSemester(), u"Archive Semester"_s);
        ROW(MaintenanceStrings::ViewOldSemester(), u"View Old Semester"_s);
        ROW(MaintenanceStrings::EditSemester(), u"Edit Semester"_s);
        ROW(MaintenanceStrings::DeleteSemester(), u"Delete Semester"_s);
        ROW(MaintenanceStrings::ConfirmArchive(),
            u"Archiving the current semester will make your current semester clear of courses\n"
            u"Are you sure you want to archive the semester?"_s);
        ROW(MaintenanceStrings::ArchiveBeforeExit(), u"Archive semester before exit?"_s);
        ROW(MaintenanceStrings::CheckCoursesToArchive(), u"Check the courses to archive."_s);
        ROW(MaintenanceStrings::Fall(2005), u"Fall 2005"_s);
        ROW(MaintenanceStrings::Spring(2006), u"Spring 2006"_s);
        ROW(MaintenanceStrings::SemesterNameRequired(), u"Semester Name Required"_s);
        ROW(MaintenanceStrings::CourseOrderTitle(), u"Course Order"_s);
        ROW(MaintenanceStrings::CourseOrderHint(), u"Set the order for the courses."_s);
        ROW(MaintenanceStrings::TabOrderTitle(), u"Tab Order"_s);
        ROW(MaintenanceStrings::TabOrderHint(), u"Set the tab order for the main view."_s);
        ROW(DatabaseStrings::DialogTitle(), u"Database Options"_s);
        ROW(DatabaseStrings::Description(),
            u"Backup Restore, and Clear all the courses from the database"_s);
        ROW(DatabaseStrings::Backup(), u"Backup"_s);
        ROW(DatabaseStrings::Restore(), u"Restore"_s);
        ROW(DatabaseStrings::ClearDatabase(), u"Clear Database"_s);
        ROW(DatabaseStrings::BackupFileName(1, 1, 2006), u"Brindle 1-1-2006.db"_s);
        ROW(DatabaseStrings::BackupFileName(7, 4, 2005), u"Brindle 7-4-2005.db"_s);
        ROW(DatabaseStrings::DatabaseFilesFilter(), u"Database Files (*.db)"_s);
        ROW(DatabaseStrings::BackedUp(), u"The database has been backed up"_s);
        ROW(DatabaseStrings::Restored(), u"The database has been restored"_s);
        ROW(DatabaseStrings::RestoreFailedBecause(u"disk full"_s).section(u'\n', 0, 0),
            u"Restore failed!"_s);
        ROW(DatabaseStrings::ConfirmClear(),
            u"Clearing a database will remove all the courses and this change cannot be "
            u"undone.\n\nAre you sure you want to clear the databaes?"_s);
        ROW(DatabaseStrings::Cleared(), u"The database has been cleared"_s);
    }
    void readsToTheLetter()
    {
        QFETCH(QString, shown);
        QFETCH(QString, required);
        QCOMPARE(shown, required);
    }
};

QTEST_GUILESS_MAIN(TestTexts)
#include "tst_texts.moc"
