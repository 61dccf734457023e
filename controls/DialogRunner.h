#pragma once

#include <QDialog>

#include <functional>

// Every modal dialog of Brindle is run through here, so that a test can play
// the user: with a hook set, the hook gets the dialog (already set up by its
// caller) and returns its result instead of exec().
namespace DialogRunner {

int Run(QDialog& dialog);

using Hook = std::function<int(QDialog& dialog)>;
void SetHook(Hook hook);

} // namespace DialogRunner
