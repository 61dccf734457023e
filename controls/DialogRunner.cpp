#include "DialogRunner.h"

#include "FirstField.h"
#include "Mnemonics.h"

namespace DialogRunner {

namespace {
Hook g_hook;
}

int Run(QDialog& dialog)
{
    // Whatever is typed first goes into the dialog's first field.
    FirstField::Focus(&dialog);
    if (g_hook)
        return g_hook(dialog);
    // Letters are given as the dialog opens, once its texts are final.
    Mnemonics::Assign(&dialog);
    return dialog.exec();
}

void SetHook(Hook hook)
{
    g_hook = std::move(hook);
}

} // namespace DialogRunner
