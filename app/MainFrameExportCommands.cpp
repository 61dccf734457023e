#include "MainFrame.h"

#include "controls/DialogRunner.h"
#include "outlook/dialogs/ExportFoldersDlg.h"

// Where exported tasks, appointments and contacts are written. Nothing of the
// view changes: editors opened afterwards use the new folders.
void CMainFrame::WireExportCommands()
{
    Connect(m_exportFolders, [this] {
        ExportFoldersDlg dialog(this);
        DialogRunner::Run(dialog);
    });
}
