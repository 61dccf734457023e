#include "MainFrame.h"

#include "BrindleData.h"
#include "TodayCompanionDlg.h"
#include "controls/DialogRunner.h"
#include "controls/MessageBox.h"
#include "grading/PredictionStore.h"
#include "maintenance/CourseOrderDlg.h"
#include "maintenance/DatabaseOptionsDlg.h"
#include "maintenance/SemesterDlg.h"
#include "maintenance/TabOrderDlg.h"
#include "res/strings/DatabaseStrings.h"

// Semesters, database maintenance, course order and tab order.
void CMainFrame::WireMaintenanceCommands()
{
    Connect(m_todayCompanion, [this] {
        TodayCompanionDlg dialog(this);
        DialogRunner::Run(dialog);
    });

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

    Connect(m_database, [this] { OnDatabaseOptions(); });
}

void CMainFrame::OnDatabaseOptions()
{
    MaintenanceResult reopened;
    bool changed = false;
    {
        DatabaseOptionsDlg dialog(this);
        DialogRunner::Run(dialog);
        reopened = dialog.Finish();
        changed = dialog.DatabaseChanged();
    }
    if (!reopened.ok) {
        // Without a database every piece of the view would show nothing.
        BrindleMessageBox::Warn(this, DatabaseStrings::CannotReopen(reopened.reason));
        close();
        return;
    }
    if (!reopened.reason.isEmpty())
        BrindleMessageBox::Warn(this, reopened.reason);

    if (changed) {
        // Predicted grades belong to the courses that were there before.
        CPredictionStore& prediction = CPredictionStore::Instance();
        prediction.Clear();
        if (CAppStateTable::Instance().GetCurrentSemesterID() != WorkingSemesterID)
            prediction.SetActive(false);
    }
    // The restored or cleared database may show another semester (banner)
    // and another current course (menu bar) besides new tabs and courses.
    RefreshAll();
}
