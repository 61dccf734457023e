#pragma once

#include "Tr.h"

// Texts the calculation layer writes into records.
namespace GradingStrings {

// The coursework type every new course starts with.
inline QString DefaultCwTypeName()
{
    return BrindleText::tr("Homework");
}

} // namespace GradingStrings
