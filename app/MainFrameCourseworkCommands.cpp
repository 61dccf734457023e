#include "MainFrame.h"

#include "BrindleData.h"
#include "controls/DialogRunner.h"
#include "editors/CourseworkDlg.h"
#include "grading/GradeCalculation.h"
#include "grading/dialogs/GradingDlg.h"

// Coursework and grading policy: Add Coursework, Edit Grading Policy, and
// opening a coursework of the list.
void CMainFrame::WireCourseworkCommands()
{
    Connect(m_addCoursework, [this] {
        CAppStateTable& state = CAppStateTable::Instance();
        CourseworkDlg dialog(this);
        // "All Courses" leaves the course open: the dialog asks for one.
        dialog.SetCourseID(state.GetCurrentCourseID());
        dialog.SetNew(true);
        if (!dialog.OnInitDialog() || DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        // Also in prediction mode and on an archived semester: the new item
        // and its grade show at once. Its "Add" menu may have added a type.
        RefreshLayout();
        RefreshTypeFilter();
        RefreshList();
        RefreshGradeBar();
    });

    Connect(m_editGradingPolicy, [this] {
        CAppStateTable& state = CAppStateTable::Instance();
        const quint32 courseId = state.GetCurrentCourseID();
        if (courseId == AllCoursesID)
            return;
        GradingDlg dialog(courseId, false, this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RecomputeCourseGrade(courseId);
        RefreshTypeFilter();
        // Deleted types move their coursework; every tab can show it.
        RefreshList();
        RefreshGradeBar();
    });

    m_openCoursework = [this](quint32 courseworkId) {
        CourseworkDlg dialog(this);
        dialog.SetCourseworkID(courseworkId);
        dialog.SetNew(false);
        if (!dialog.OnInitDialog() || DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RefreshTypeFilter();
        RefreshList();
        RefreshGradeBar();
    };
}
