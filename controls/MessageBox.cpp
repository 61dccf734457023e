#include "MessageBox.h"

#include "res/strings/AppStrings.h"
#include "res/strings/ControlStrings.h"
#include "res/strings/StoreStrings.h"
#include "store/Transaction.h"

namespace BrindleMessageBox {

namespace {
Answerer g_answerer;
}

void SetAnswerer(Answerer answerer)
{
    g_answerer = std::move(answerer);
}

QMessageBox::StandardButton Show(QWidget* parent, const QString& text, QMessageBox::Icon icon,
                                 QMessageBox::StandardButtons buttons, const QString& caption)
{
    if (g_answerer)
        return g_answerer(text);
    QMessageBox box(icon, caption.isEmpty() ? AppStrings::AppTitle() : caption, text, buttons,
                    parent);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void Inform(QWidget* parent, const QString& text)
{
    Show(parent, text, QMessageBox::Information, QMessageBox::Ok);
}

void Warn(QWidget* parent, const QString& text)
{
    Show(parent, text, QMessageBox::Warning, QMessageBox::Ok);
}

void WarnNotSaved(QWidget* parent)
{
    const QString reason = CTransaction::LastFailure();
    Warn(parent,
         ControlStrings::ChangeNotSaved(reason.isEmpty() ? StoreStrings::StepFailed() : reason));
}

bool ConfirmDelete(QWidget* parent, const QString& text)
{
    return Show(parent, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
                ControlStrings::ConfirmDelete()) != QMessageBox::No;
}

} // namespace BrindleMessageBox
