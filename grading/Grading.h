#pragma once

// The calculation layer: course grades, the prediction store, grade points and
// GPAs, the predefined grade scales file and the number rules used wherever a
// grade is shown. Widget-free; it reads and writes only the record store.

#include "GpaCalculation.h"
#include "GradeCalculation.h"
#include "GradeScalesFile.h"
#include "PredictionStore.h"
#include "store/GradeText.h"
