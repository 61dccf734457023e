#pragma once

#include <QString>

// The building of this name, added when there is none yet; 0 for an empty
// name, and 0 when the lookup or the addition failed (which dooms the
// transaction it runs in). Courses and instructors name their building so.
quint32 GetOrAddBuildingID(const QString& name);
