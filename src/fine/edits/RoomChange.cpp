#include "RoomChange.h"

#include "AngleUnits.h"
#include "RoomAngles.h"
#include "RoomTrafoData.h"
#include "bsMatrix.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double leastTold = 0.0005;
constexpr double leastScalingTold = 0.000005;

bsMatrix rotationOf(const RoomTrafoData &record)
{
    const bsMatrix rotation = rotationFromControllerRows(record.rotation);
    return rotation.isFinite() ? rotation : bsMatrix();
}

/// Where the calibrated room has the record's zero point.
bsVector zeroPointOf(const RoomTrafoData &record)
{
    const auto negated = [](double value) { return std::isfinite(value) ? -value : 0.0; };
    return rotationOf(record).transformPoint(
        {negated(record.translation[0]), negated(record.translation[1]), negated(record.translation[2])});
}

double scalingOf(const RoomTrafoData &record)
{
    return std::isfinite(record.scaling) ? record.scaling : 1.0;
}

bool pointsBack(const bsVector &axis)
{
    const auto [least, most] = std::minmax({axis.x, axis.y, axis.z});
    return -least > most;
}

void takeTurn(RoomChange &change, const bsMatrix &rotation)
{
    bsQuaternion turn = rotation.toOrientation();
    bsVector axis(turn.x, turn.y, turn.z);
    if (pointsBack(axis)) {
        axis = bsVector() - axis;
        turn.w = -turn.w;
    }
    const double half = std::atan2(axis.length(), turn.w) * AngleUnits::degreesPerRadian;
    const double degrees = half >= 90.0 + leastTold / 4.0 ? 2.0 * half - 360.0 : 2.0 * half;
    if (std::abs(degrees) < leastTold)
        return;
    axis.normalize();
    change.turnedDegrees = degrees;
    change.axis = axis;
}

} // namespace

RoomChange RoomChange::between(const RoomTrafoData &before, const RoomTrafoData &after)
{
    RoomChange change;
    const double moved = (zeroPointOf(after) - zeroPointOf(before)).length();
    change.movedMm = moved < leastTold ? 0.0 : moved;
    if (before.rotation != after.rotation)
        takeTurn(change, bsMatrix::product(rotationOf(before).transposed(), rotationOf(after)));
    change.scalingBefore = scalingOf(before);
    change.scalingAfter = scalingOf(after);
    if (std::abs(change.scalingAfter - change.scalingBefore) < leastScalingTold)
        change.scalingAfter = change.scalingBefore;
    return change;
}
