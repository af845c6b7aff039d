#pragma once

#include "AllowedPairs.h"
#include "MatchingPoint.h"
#include "RotationCell.h"

#include <vector>

/// What pairs of points cost under a rotation about the centres of both lists.
///
/// For an order p and a rotation R the sum of squared distances is sum |a_i - R b_p(i)|^2 = total() + the
/// costs -2 a_i . R b_p(i) of its pairs. Shapes: as many measured points b as reference points a, both
/// measured from their centres; references are the rows and measured points the columns of the pairs.
class RotationCosts
{
public:
    RotationCosts(const MatchingPoints &references, const MatchingPoints &measured);

    [[nodiscard]] int count() const { return static_cast<int>(m_references.size()); }

    /// The sum of all squared lengths.
    [[nodiscard]] double total() const { return m_total; }

    /// Writes the costs of the pairs under `rotation`.
    void fill(std::vector<double> &costs, const RotationCell::Matrix &rotation,
              const AllowedPairs &pairs) const;

    /// W such that no order loses more than 4 v^T W v when its best rotation is followed by the turn from
    /// there to `rotation`, with v as in RotationCell::spread.
    ///
    /// The loss of an order is 4 sum (v x b) . (v x R^T a), because the first derivative vanishes at its best
    /// rotation; by Cauchy and Schwarz at most 4 sqrt(v^T B v) sqrt(v^T R^T A R v) with
    /// B = sum (|b|^2 - b b^T), A likewise, and the mean of both is above the product of their roots.
    [[nodiscard]] RotationCell::Matrix turnWeights(const RotationCell::Matrix &rotation) const;

    /// A rotation that fits an order better than `rotation`, close to its best one. Of unit length unless all
    /// fit the order alike.
    [[nodiscard]] RotationCell::Quaternion improved(const RotationCell::Quaternion &rotation,
                                                    const std::vector<int> &order) const;

private:
    MatchingPoints m_references;
    MatchingPoints m_measured;
    double m_total = 0.0;
    RotationCell::Matrix m_referenceWeights;
    RotationCell::Matrix m_measuredWeights;
};
