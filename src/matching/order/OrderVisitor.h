#pragma once

#include "PointOrder.h"

#include <functional>

/// Told about complete orders by a walk through those that may be of interest.
class OrderVisitor
{
public:
    /// Asked by a walk every few steps, less than a few milliseconds apart; false ends it. May be empty.
    using GoOn = std::function<bool()>;

    virtual ~OrderVisitor() = default;

    /// The root mean square in mm that orders of interest do not exceed; may fall during the walk.
    [[nodiscard]] virtual double limitMm() const = 0;

    /// False ends the walk.
    virtual bool visit(const PointOrder &order) = 0;
};
