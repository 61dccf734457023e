#include "MainFrame.h"

#include "BrindleData.h"
#include "controls/DialogRunner.h"
#include "grading/PredictedGrades.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradePlannerDlg.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"

// Grade prediction options, institution and grade scales, report card,
// progress report and grade planner.
void CMainFrame::WireGradeCommands()
{
    Connect(m_predictionOptions, [this] {
        GradePredictionDlg dialog(this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        // The list shows the new scores to give at once; the grades follow.
        RecomputePredictedGrades();
        RefreshGradeBar();
        RefreshList();
    });

    Connect(m_institution, [this] {
        InstitutionDlg dialog(this);
        if (DialogRunner::Run(dialog) != QDialog::Accepted)
            return;
        // The scale names every grade and its points: a course's grade bar
        // shows a grade name, All Courses the GPA.
        RefreshGradeBar();
    });

    // The reports write nothing, but the view is brought up to date after
    // them just as after adding coursework.
    auto refreshAfterReport = [this] {
        RefreshLayout();
        RefreshList();
        RefreshGradeBar();
    };

    Connect(m_reportCard, [this, refreshAfterReport] {
        ReportCardDlg dialog(this);
        if (DialogRunner::Run(dialog) == QDialog::Accepted)
            refreshAfterReport();
    });

    Connect(m_progressReport, [this, refreshAfterReport] {
        const quint32 courseId = CAppStateTable::Instance().GetCurrentCourseID();
        if (courseId == AllCoursesID)
            return;
        ProgressReportDlg dialog(courseId, this);
        if (DialogRunner::Run(dialog) == QDialog::Accepted)
            refreshAfterReport();
        if (dialog.PlannerRequested())
            OpenGradePlanner(courseId);
    });

    Connect(m_gradePlanner,
            [this] { OpenGradePlanner(CAppStateTable::Instance().GetCurrentCourseID()); });
}

// The planner only reads, so nothing needs refreshing after it.
void CMainFrame::OpenGradePlanner(quint32 courseId)
{
    GradePlannerDlg dialog(courseId, this);
    DialogRunner::Run(dialog);
}
