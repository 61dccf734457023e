#pragma once

#include <QtGlobal>

// Deletes a course and every record that belongs to it (times, textbooks,
// instructor links, coursework, types, grading policy, course order), all or
// nothing, and moves the current course to "All Courses" when it was this
// one. Instructors and Outlook links stay. False when it did not land (then
// nothing changed; CTransaction::LastFailure() says why).
bool RemoveCourse(quint32 courseId);
