#include "MainFrame.h"

// Grade prediction options, institution and grade scales, report card and
// progress report.
void CMainFrame::WireGradeCommands()
{
}
