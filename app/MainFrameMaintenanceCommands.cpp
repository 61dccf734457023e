#include "MainFrame.h"

// Semesters, database maintenance, course order and tab order.
void CMainFrame::WireMaintenanceCommands()
{
}
