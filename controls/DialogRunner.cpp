#include "DialogRunner.h"

#include "FirstField.h"

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
    return dialog.exec();
}

void SetHook(Hook hook)
{
    g_hook = std::move(hook);
}

} // namespace DialogRunner
