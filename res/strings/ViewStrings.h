#pragma once

#include "Tr.h"

// Texts of the main view: the filters, the list, the grade bar and banners.
namespace ViewStrings {

inline QString AllCourses() { return BrindleText::tr("All Courses"); }
inline QString NoCourses() { return BrindleText::tr("No Courses"); }

} // namespace ViewStrings
