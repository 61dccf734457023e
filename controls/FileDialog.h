#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

// Every file dialog of Brindle goes through here, with a hook that lets tests
// answer instead of a user, so that no test ever waits on a real dialog.
namespace BrindleFileDialog {

// What a dialog was asked for, as the hook sees it.
struct Request
{
    enum Kind { Save, Open };
    Kind kind = Open;
    QString suggestedName; // Save: the file name offered
    QString defaultSuffix; // Save: added to a name typed without one
    QStringList filters;   // Open: "Database Files (*.db)", ...
};

// A save dialog offering the name in the last folder used (the documents
// folder at first), asking before it overwrites; an empty string on Cancel.
QString GetSaveFileName(QWidget* parent, const QString& suggestedName,
                        const QString& defaultSuffix);
// An open dialog for an existing file; an empty string on Cancel.
QString GetOpenFileName(QWidget* parent, const QStringList& filters);

// Test hook: when set, no dialog is shown; the hook returns the chosen path,
// or an empty string for Cancel.
using Answerer = std::function<QString(const Request& request)>;
void SetAnswerer(Answerer answerer);

} // namespace BrindleFileDialog
