#include "MainFrame.h"

// Coursework and grading policy: Add Coursework, Edit Grading Policy, and
// opening a coursework of the list.
void CMainFrame::WireCourseworkCommands()
{
}
