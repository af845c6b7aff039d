#pragma once

#include "AllowedPairs.h"
#include "OrderVisitor.h"
#include "TwinPoints.h"

#include <functional>
#include <vector>

/// Goes through the orders whose pairs cost little more than the best assignment.
///
/// What a pair costs more than the prices of its row and its column (see LinearAssignment) is its rest; the
/// rests of an order add up to what it costs more than the bound. Every measured point gets a group of equal
/// reference points that is not full yet, so that of the orders which only exchange equal points one is
/// visited.
class CellOrders
{
public:
    /// False ends the visit.
    using Visit = std::function<bool(const PointOrder &)>;

    enum class Outcome { Complete, Ended, TooMany };

    CellOrders(const TwinPoints &references, const TwinPoints &measured);

    /// Takes the orders of allowed pairs with a sum of rests of at most `gap`; `rests[k]` belongs to pair k,
    /// a reference point being the row. False when more than `mostPairs` have a rest that small; equal
    /// reference points count once.
    [[nodiscard]] bool prepare(const AllowedPairs &pairs, const std::vector<double> &rests, double gap,
                               std::size_t mostPairs);

    /// TooMany after `mostSteps` steps; a step tries a pair.
    [[nodiscard]] Outcome forEach(long mostSteps, const Visit &visit);

    /// `goOn` is asked every thousand steps; TooMany when it says no.
    [[nodiscard]] Outcome forEach(const OrderVisitor::GoOn &goOn, const Visit &visit);

    /// Both: TooMany after about `mostSteps` steps, too.
    [[nodiscard]] Outcome forEach(long mostSteps, const OrderVisitor::GoOn &goOn, const Visit &visit);

private:
    struct Option {
        double rest;
        int group;
    };

    [[nodiscard]] bool findOptions(const AllowedPairs &pairs, const std::vector<double> &rests,
                                   std::size_t mostPairs);
    bool addOption(int group, int measured, double rest);
    void sortPlaces();
    [[nodiscard]] Outcome descend(std::size_t depth, double gap);
    [[nodiscard]] bool mayStep();
    [[nodiscard]] PointOrder order() const;

    const TwinPoints &m_references;
    const TwinPoints &m_measured;
    std::size_t m_count = 0;
    std::vector<std::vector<Option>> m_options; ///< of every measured point, the cheapest first
    std::vector<int> m_places;                  ///< measured points, the one with the fewest options first
    std::vector<int> m_room;                    ///< how many more every group of reference points takes
    std::vector<int> m_groups;                  ///< of reference points, for every measured point
    const Visit *m_visit = nullptr;
    const OrderVisitor::GoOn *m_goOn = nullptr;
    long m_stepsLeft = 0; ///< until the next question
    long m_questionsLeft = 0;
    double m_gap = 0.0;
};
