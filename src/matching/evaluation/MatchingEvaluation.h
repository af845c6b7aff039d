#pragma once

#include "MatchingPoint.h"
#include "PointOrder.h"
#include "bsMatrix.h"

#include <functional>
#include <vector>

/// The transformation between reference points and measured points, and how far it can be trusted. The words
/// for the user are made of this elsewhere.
///
/// Units: millimetres.   Frames: "room" is the room as the controller reports it when the points are
/// measured, "reference" the coordinates that the points shall have.
struct MatchingEvaluation {
    enum class Outcome {
        NotEnoughPoints,  ///< fewer than three reference points
        CountsDiffer,     ///< not as many measured as reference points
        NoValidOrder,     ///< no order of the measured points can be fitted
        StartFailed,      ///< see `code`, of trafo3d_3trafo
        RefinementFailed, ///< see `code`, of trafo3d_opttrafo
        TooManyPoints,    ///< more than AssignmentSearch::mostPoints, of which no order is searched
        Cancelled,        ///< the search was ended before its order was sure
        Matched,
    };

    enum class Order {
        Preserved, ///< measured point i belongs to reference point i
        Searched,  ///< the best of all orders
    };

    /// Asked every few steps of a search, less than a few milliseconds apart; false cancels. May be empty.
    using GoOn = std::function<bool()>;

    /// Evaluates copies of the lists. A search for up to six points, or for points that fit, ends within
    /// milliseconds; points that fit badly take longer, and if no order is valid it may never end. An order
    /// that is sure is not lost when `goOn` ends the search for another one that fits.
    [[nodiscard]] static MatchingEvaluation of(const MatchingPoints &references,
                                               const MatchingPoints &measured, Order order, const GoOn &goOn);

    Outcome outcome = Outcome::NotEnoughPoints;
    int code = 0; ///< negative after StartFailed and RefinementFailed, else 0

    /// All of the following is set by Matched only.
    double rmsMm = 0.0;
    PointOrder order;                ///< the index of the measured point for each reference point, from 0
    MatchingPoints mapped;           ///< for each reference point its measured point in the reference frame
    std::vector<double> distancesMm; ///< from each reference point to its mapped point
    bsMatrix roomFromReference;      ///< rigid; the inverse of the fit
    bool otherOrderFits =
        false; ///< another order is as good: within 2 % of the residual or 0.05 mm (searches)

    /// The search was ended while it looked for such an order: there may be one or not.
    bool otherOrdersUnknown = false;

    /// The reference point whose distance is the worst, if that is more than three times the median and at
    /// least 0.01 mm; else -1.
    int worstPair = -1;
};
