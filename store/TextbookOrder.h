#pragma once

#include <QtGlobal>

#include <vector>

// The course's textbook ids in their display order (a stable sort by
// position). An id whose textbook is gone is the caller's to pass over.
std::vector<quint32> GetTextbookIDsInOrder(quint32 courseId);
