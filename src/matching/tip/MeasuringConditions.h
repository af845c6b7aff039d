#pragma once

#include "MeasurementAccess.h"

/// With what, how long and how strictly a point is measured.
struct MeasuringConditions {
    int tool = 0; ///< its number, from 1
    double durationSeconds = MeasurementAccess::defaultDurationSeconds;
    double toleranceMm = MeasurementAccess::defaultToleranceMm;
};
