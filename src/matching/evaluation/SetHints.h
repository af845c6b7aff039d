#pragma once

#include "MatchingPoint.h"

/// What is probably wrong with two lists of points that do not match, told by the lists alone and for any
/// order of the points. The sentences for the user are made elsewhere.
///
/// Units: millimetres.   Cost: cheap enough for every change of a list; it does not grow with how badly the
/// points fit. Nothing is said of lists with coordinates that are not finite.
struct SetHints {
    /// How many times larger one list is than the other.
    enum class Factor { None, Ten, Inch, Hundred, Thousand };

    enum class Larger { References, Measured };

    [[nodiscard]] static SetHints of(const MatchingPoints &references, const MatchingPoints &measured);

    /// 10, 25.4, 100 or 1000; 1 for None.
    [[nodiscard]] static double valueOf(Factor factor);

    [[nodiscard]] bool any() const
    {
        return factor != Factor::None || mirrored || sameMeasured >= 0 || zeroReferences > 1;
    }

    /// The ratio of the root mean squares of the distances from the centre, within a twentieth. From two
    /// points on, and only for lists of the same length.
    Factor factor = Factor::None;
    Larger larger = Larger::References; ///< of no meaning without a factor

    /// The measured points fit the mirror image of the reference points, within 2 % of their extent, and do
    /// not fit the reference points. For 4 to 100 points, lists of the same length and without another hint.
    bool mirrored = false;

    /// Two measured points, by index, that are less than 3 mm apart and less than half as far as any two
    /// different reference points; -1 if there are none. Without a factor only.
    int sameMeasured = -1;
    int sameMeasuredToo = -1; ///< above sameMeasured

    /// How many reference points are exactly 0 0 0. One is an origin, more are rows not filled in yet.
    int zeroReferences = 0;
};
