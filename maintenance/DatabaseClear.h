#pragma once

#include "MaintenanceResult.h"

namespace DatabaseClear {

// Removes every course of every semester with RemoveCourse (each with
// everything that belongs to it), all in one transaction; semesters, the
// grade scale, the GPA information and the application state stay. Mounts
// the database for its work and lets go of it again. On failure nothing is
// removed.
MaintenanceResult Clear();

} // namespace DatabaseClear
