#pragma once

#include "MatchingPoint.h"
#include "PointOrder.h"

#include <array>
#include <vector>

/// Lower bounds for the sum of squared distances that any rigid motion leaves between assigned points.
///
/// Every order uses all points, so the best translation always carries centre to centre, and with a and b
/// measured from their centres the pairs assigned so far leave at least the minimum over all rotations R of
/// sum |a - R b|^2 = sum (|a|^2 + |b|^2) - 2 lambda, lambda being the largest root of
/// (x^2 - F)^2 - 8 x det M - 4 G with M = sum a b^T, F = |M|^2, G = |adj M|^2.
/// No root is computed: beyond the largest root, and only there, the polynomial and all its derivatives are
/// positive. All comparisons leave room for rounding, so that an order is never excluded wrongly.
///
/// Units: lengths are divided by unitMm(), a power of two, so that no power of them overflows.
/// Source: D. L. Theobald, Acta Cryst. A61 (2005) 478; B. K. P. Horn, J. Opt. Soc. Am. A 4 (1987) 629.
class RotationBound
{
public:
    /// What is known of the pairs assigned so far.
    struct Moments {
        std::array<double, 9> products = {};
        double squares = 0.0;
        int count = 0;
    };

    /// As many measured as reference points, all finite.
    RotationBound(const MatchingPoints &references, const MatchingPoints &measured);

    [[nodiscard]] double unitMm() const { return m_unitMm; }

    /// From their centre, in the unit.
    [[nodiscard]] const MatchingPoints &centredReferences() const { return m_references.centred; }
    [[nodiscard]] const MatchingPoints &centredMeasured() const { return m_measured.centred; }

    [[nodiscard]] Moments extended(const Moments &moments, int reference, int measured) const;

    /// The moments of all pairs of an order.
    [[nodiscard]] Moments momentsOf(const PointOrder &order) const;

    /// The sum of squares that no fit with this root mean square exceeds, in double precision or rounded to
    /// single precision.
    [[nodiscard]] double sumWithin(double rmsMm) const;

    /// True when the pairs certainly leave more than `limit`, a sum of squares.
    [[nodiscard]] bool exceeds(const Moments &moments, double limit) const;

    /// The same with one pair more.
    [[nodiscard]] bool exceedsWith(const Moments &moments, int reference, int measured, double limit) const;

    /// About the sum of squares that the best rotation leaves; for putting pairs in order, not for excluding.
    [[nodiscard]] static double estimate(const Moments &moments);

    /// The sum of squares that lengths alone leave between the points without a partner: those with
    /// `references[i]` and `measured[j]` not yet set.
    [[nodiscard]] double lengthRest(const std::vector<char> &references,
                                    const std::vector<char> &measured) const;

private:
    struct Side {
        MatchingPoints centred;
        std::vector<double> lengths;
        std::vector<int> byLength;
    };

    [[nodiscard]] static Side prepared(const MatchingPoints &points, double unitMm);

    double m_unitMm;
    double m_margin;
    Side m_references;
    Side m_measured;
};
