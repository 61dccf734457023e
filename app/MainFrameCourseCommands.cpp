#include "MainFrame.h"

#include "BrindleData.h"
#include "controls/DialogRunner.h"
#include "controls/MessageBox.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "editors/CourseRemoval.h"
#include "editors/InstructorDlg.h"
#include "res/strings/EditorStrings.h"

// Course records: New / Edit / Delete Course, instructors and buildings.
void CMainFrame::WireCourseCommands()
{
    Connect(m_newCourse, [this] {
        CourseDlg dialog(this);
        dialog.SetCourse(CourseDlg::NewCourseID);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RefreshGradeBar();
        RefreshCourseSelector();
        RefreshMenuBar();
        RefreshList();
    });

    Connect(m_editCourse, [this] {
        CAppStateTable& state = CAppStateTable::Instance();
        const quint32 courseId = state.GetCurrentCourseID();
        if (courseId == AllCoursesID)
            return;
        CourseDlg dialog(this);
        dialog.SetCourse(courseId);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RefreshCourseSelector();
        RefreshTypeFilter();
        // The list's headers carry the course name; the hours and "Grading..."
        // reach the grade bar.
        RefreshList();
        RefreshGradeBar();
    });

    Connect(m_deleteCourse, [this] {
        CAppStateTable& state = CAppStateTable::Instance();
        const quint32 courseId = state.GetCurrentCourseID();
        if (courseId == AllCoursesID)
            return;
        const QString name = CCourseTable::GetCourseNameFromID(courseId);
        if (!BrindleMessageBox::ConfirmDelete(this, EditorStrings::ConfirmDeleteCourse(name)))
            return;
        if (!RemoveCourse(courseId)) {
            BrindleMessageBox::WarnNotSaved(this);
            return;
        }
        RefreshGradeBar();
        RefreshCourseSelector();
        RefreshMenuBar();
        RefreshList();
    });

    Connect(m_editInstructors, [this] {
        const quint32 courseId = CAppStateTable::Instance().GetCurrentCourseID();
        if (courseId == AllCoursesID)
            return;
        InstructorDlg dialog(courseId, this);
        DialogRunner::Run(dialog);
    });

    Connect(m_allInstructors, [this] {
        InstructorDlg dialog(InstructorDlg::AllInstructors, this);
        DialogRunner::Run(dialog);
    });

    Connect(m_buildings, [this] {
        BuildingDlg dialog(this);
        DialogRunner::Run(dialog);
    });
}
