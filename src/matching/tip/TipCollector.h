#pragma once

#include "MatchingPoint.h"

#include <cstddef>

/// Collects the tip positions of one measurement and judges them when it ends.
///
/// Units: millimetres and seconds.
class TipCollector
{
public:
    enum class Outcome {
        Nothing,    ///< nothing was measured, or no time passed
        Point,      ///< the mean is the measured point
        TipMoved,   ///< the samples spread more than the tolerance
        EndedEarly, ///< the samples do not span the duration
    };

    struct Judgement {
        Outcome outcome = Outcome::Nothing;
        MatchingPoint mean{};
        /// Mean of the squared distances (in space) of the samples to their mean, mm^2.
        double variance = 0.0;
        double standardDeviation = 0.0;
    };

    /// Adds a sample. Beyond largestCount samples only the time goes on.
    void add(double timestamp, const MatchingPoint &tip);

    /// Judges the samples and forgets them. The samples span the duration if their time is not shorter, and
    /// the tip was held still if the standard deviation is not above the tolerance.
    [[nodiscard]] Judgement finish(double duration, double tolerance);

    /// Forgets the samples.
    void clear();

    [[nodiscard]] std::size_t count() const { return m_tips.size(); }

    /// Time from the first to the last sample; 0 with fewer than two.
    [[nodiscard]] double elapsed() const;

private:
    static constexpr std::size_t largestCount = 1000000;

    [[nodiscard]] Judgement judge(double tolerance) const;

    MatchingPoints m_tips;
    double m_first = 0.0;
    double m_last = 0.0;
};
