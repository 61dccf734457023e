#pragma once

// While grade prediction mode is on, works out every course of the semester
// on view again into the prediction store, so that its grades follow the
// scores to give just set; the database is never written. Does nothing while
// the mode is off.
void RecomputePredictedGrades();
