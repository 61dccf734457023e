#include "FileDialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace BrindleFileDialog {

namespace {

Answerer g_answerer;
// The folder of the last file chosen, so that a backup and a later restore
// start where the user went before.
QString g_lastFolder;

QString StartFolder()
{
    if (!g_lastFolder.isEmpty())
        return g_lastFolder;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString Run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    const QString chosen = dialog.selectedFiles().constFirst();
    g_lastFolder = QFileInfo(chosen).absolutePath();
    return chosen;
}

} // namespace

void SetAnswerer(Answerer answerer)
{
    g_answerer = std::move(answerer);
}

QString GetSaveFileName(QWidget* parent, const QString& suggestedName, const QString& defaultSuffix)
{
    if (g_answerer)
        return g_answerer({Request::Save, suggestedName, defaultSuffix, {}});
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(defaultSuffix);
    dialog.setDirectory(StartFolder());
    dialog.selectFile(suggestedName);
    return Run(dialog);
}

QString GetOpenFileName(QWidget* parent, const QStringList& filters)
{
    if (g_answerer)
        return g_answerer({Request::Open, {}, {}, filters});
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(filters);
    dialog.setDirectory(StartFolder());
    return Run(dialog);
}

} // namespace BrindleFileDialog
