#include "MatchingEvaluation.h"

#include "AssignmentSearch.h"
#include "OrderFit.h"
#include "PointArithmetic.h"
#include "trafo3d.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

using Outcome = MatchingEvaluation::Outcome;

constexpr std::size_t fewestPoints = 3;
constexpr double worstOfMedian = 3.0;
constexpr double smallestWorstMm = 0.01;

PointOrder tableOrder(std::size_t count)
{
    PointOrder order(count);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

Outcome outcomeWithoutOrder(AssignmentSearch::Outcome outcome)
{
    switch (outcome) {
    case AssignmentSearch::Outcome::TooManyPoints:
        return Outcome::TooManyPoints;
    case AssignmentSearch::Outcome::Cancelled:
        return Outcome::Cancelled;
    case AssignmentSearch::Outcome::NoValidOrder:
    case AssignmentSearch::Outcome::Found:
        break;
    }
    return Outcome::NoValidOrder;
}

/// Finds the order and whether it is the only good one. Sets the outcome when there is none.
bool searchOrder(MatchingEvaluation &evaluation, const MatchingPoints &references,
                 const MatchingPoints &measured, const MatchingEvaluation::GoOn &goOn)
{
    AssignmentSearch search(references, measured);
    const AssignmentSearch::Result result = search.run(goOn);
    evaluation.outcome = outcomeWithoutOrder(result.outcome);
    if (result.outcome != AssignmentSearch::Outcome::Found)
        return false;
    const AssignmentSearch::Rival rival = search.findRival(result, goOn);
    evaluation.otherOrderFits = rival == AssignmentSearch::Rival::Exists;
    evaluation.otherOrdersUnknown = rival == AssignmentSearch::Rival::Cancelled;
    evaluation.order = result.order;
    return true;
}

void mapPoints(MatchingEvaluation &evaluation, const MatchingPoints &references,
               const MatchingPoints &measured, const double *transform)
{
    for (std::size_t i = 0; i < references.size(); ++i) {
        MatchingPoint mapped;
        trafo3d_transformpoints(mapped.data(), transform, at(measured, evaluation.order[i]).data(), 1);
        evaluation.mapped.push_back(mapped);
        evaluation.distancesMm.push_back(distance(mapped, references[i]));
    }
}

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t upper = values.size() / 2;
    return 0.5 * (values[upper] + values[(values.size() - 1) / 2]);
}

int worstOf(const std::vector<double> &distances)
{
    const auto worst = std::max_element(distances.begin(), distances.end());
    const bool stands = *worst > worstOfMedian * medianOf(distances) && *worst >= smallestWorstMm;
    return stands ? static_cast<int>(worst - distances.begin()) : -1;
}

bsMatrix inverseOf(const double *transform)
{
    bsMatrix matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix.at(row, column) = transform[4 * row + column];
    }
    matrix.invertRigid();
    return matrix;
}

void fitOrder(MatchingEvaluation &evaluation, const MatchingPoints &references,
              const MatchingPoints &measured)
{
    const OrderFit::Result fit = OrderFit(references, measured).fit(evaluation.order);
    evaluation.code = fit.startCode != 0 ? fit.startCode : fit.refineCode;
    evaluation.outcome = fit.startCode != 0    ? Outcome::StartFailed
                         : fit.refineCode != 0 ? Outcome::RefinementFailed
                                               : Outcome::Matched;
    if (evaluation.outcome != Outcome::Matched) {
        evaluation.order.clear();
        return;
    }
    evaluation.rmsMm = fit.rmsMm;
    mapPoints(evaluation, references, measured, fit.transform.data());
    evaluation.worstPair = worstOf(evaluation.distancesMm);
    evaluation.roomFromReference = inverseOf(fit.transform.data());
}

} // namespace

MatchingEvaluation MatchingEvaluation::of(const MatchingPoints &references, const MatchingPoints &measured,
                                          Order order, const GoOn &goOn)
{
    MatchingEvaluation evaluation;
    if (references.size() < fewestPoints)
        return evaluation;
    evaluation.outcome = Outcome::CountsDiffer;
    if (measured.size() != references.size())
        return evaluation;
    if (order == Order::Preserved)
        evaluation.order = tableOrder(references.size());
    else if (!searchOrder(evaluation, references, measured, goOn))
        return evaluation;
    fitOrder(evaluation, references, measured);
    return evaluation;
}
