#pragma once

#include "MatchingPoint.h"

#include <vector>

/// Where a drawing of a matching puts its points: seen along one axis of the reference coordinates, with the
/// errors enlarged.
///
/// Units: millimetres in, the picture's own lengths out, y downwards.
struct FitSketch {
    /// The axis that the viewer looks along. Along z, x goes to the right and y up; along y, x and z; along
    /// x, y and z.
    enum class Along { X, Y, Z };

    struct Place {
        double x = 0.0;
        double y = 0.0;
    };
    struct Pair {
        Place reference;
        Place mapped; ///< off the reference by the error times `enlargement`
    };

    /// The axis along which the points extend least; z where several do.
    [[nodiscard]] static Along widestView(const MatchingPoints &references);

    /// `mapped` holds for each reference point its measured point in the reference frame. The picture must be
    /// larger than nothing. Coordinates must be finite.
    [[nodiscard]] static FitSketch of(const MatchingPoints &references, const MatchingPoints &mapped,
                                      Along along, double width, double height);

    std::vector<Pair> pairs;

    /// How many times as large the errors are drawn: 1, 2, 5, 10, ... up to a million; the largest of them by
    /// which no error is longer than an eighth of the picture's shorter side.
    double enlargement = 1.0;
};
