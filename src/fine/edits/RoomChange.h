#pragma once

#include "bsVector.h"

struct RoomTrafoData;

/// What tells two transformation records apart, in words that a person uses.
struct RoomChange {
    double movedMm = 0.0;       ///< how far the zero point moves in the calibrated room
    double turnedDegrees = 0.0; ///< by the right hand about `axis`
    bsVector axis;              ///< in the axes before; its largest component is positive; 0 if nothing turns
    double scalingBefore = 1.0;
    double scalingAfter = 1.0;

    /// The change from one record to another. What is too small to be told in three decimals (a millimetre's,
    /// a degree's) or in five (the scaling's) is none. Numbers that are not finite count as neutral.
    static RoomChange between(const RoomTrafoData &before, const RoomTrafoData &after);

    [[nodiscard]] bool isMove() const { return movedMm != 0.0; }
    [[nodiscard]] bool isTurn() const { return turnedDegrees != 0.0; }
    [[nodiscard]] bool isScaling() const { return scalingBefore != scalingAfter; }
};
