#include "MainFrame.h"

#include "BrindleData.h"
#include "controls/DialogRunner.h"
#include "maintenance/CourseOrderDlg.h"
#include "maintenance/SemesterDlg.h"
#include "maintenance/TabOrderDlg.h"

// Semesters, database maintenance, course order and tab order.
void CMainFrame::WireMaintenanceCommands()
{
    Connect(m_semester, [this] {
        SemesterDlg dialog(this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        CAppStateTable& state = CAppStateTable::Instance();
        RefreshLayout();
        state.SetCurrentCourseID(dialog.ChosenCourseID());
        state.UpdateRecord();
        RefreshCourseSelector();
        // The chosen course is "All Courses": the menu must follow it.
        RefreshMenuBar();
        RefreshTypeFilter();
        RefreshList();
        RefreshGradeBar();
    });

    Connect(m_sortCourses, [this] {
        CourseOrderDlg dialog(this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RefreshCourseSelector();
        if (CAppStateTable::Instance().GetCurrentCourseID() == AllCoursesID)
            RefreshList();
    });

    Connect(m_tabOrder, [this] {
        TabOrderDlg dialog(this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        RefreshTabs();
    });
}
