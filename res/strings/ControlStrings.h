#pragma once

#include "Tr.h"

// Texts shared by dialogs: captions and buttons.
namespace ControlStrings {

inline QString ConfirmDelete() { return BrindleText::tr("Confirm Delete"); }

} // namespace ControlStrings
