#include "MainFrame.h"

// Course records: New / Edit / Delete Course, instructors and buildings.
void CMainFrame::WireCourseCommands()
{
}
