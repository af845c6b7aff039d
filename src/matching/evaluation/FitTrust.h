#pragma once

#include "MatchingPoint.h"

#include <cstddef>
#include <optional>

struct MatchingEvaluation;

/// How far a matching can be trusted: at its points, away from them, and without its worst point.
///
/// Units: millimetres.   Nothing is said of a matching that failed.
struct FitTrust {
    /// `references` are the points that the evaluation was made of. Cost: a fit for each point, up to
    /// mostFits.
    [[nodiscard]] static FitTrust of(const MatchingPoints &references, const MatchingEvaluation &evaluation);

    /// The pair that disturbs the fit most: the one without which the others fit best. It need not be the one
    /// with the largest distance, since a fit follows a wrong point. Above mostFits points the one with the
    /// largest distance.
    struct WithoutWorst {
        int pair = -1;      ///< index of the reference point
        double rmsMm = 0.0; ///< the residual of the others

        /// The others fit three times as well or better, and the residual is worth a word.
        bool stands = false;
    };
    /// From five pairs on: of fewer, any set fits the better the smaller it is.
    std::optional<WithoutWorst> withoutWorst;

    static constexpr std::size_t mostFits = 100;
    /// A residual below it is not worth a word.
    static constexpr double smallestResidualMm = 0.01;

    /// The error to be expected where the fit is applied, as the root of its mean square, if the measured
    /// points are off by chance as much as the residual says, alike in all directions. Missing for points on
    /// a line, whose turn about it is left to chance.
    ///
    /// <TRE^2(p)> = <FLE^2> / N (1 + sum over the axes k of d_k^2 / f_k^2 / 3), <FLE^2> = <FRE^2> N / (N -
    /// 2), with d_k the distance of p from the principal axis k of the reference points, and f_k theirs as a
    /// root mean square. Source: J. M. Fitzpatrick, J. B. West, C. R. Maurer, IEEE Trans. Med. Imaging 17
    /// (1998) 694.
    struct Expected {
        double centreMm = 0.0; ///< at the centre of the reference points
        double cornerMm = 0.0; ///< at the corner, farthest from it, of the box about them along x, y and z
        MatchingPoint corner{};
    };
    std::optional<Expected> expected;
};
