#include "ViewDistance.h"

#include "AngleUnits.h"
#include "abcRoom.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double shortestDistance = 900.0;
constexpr double margin = 1.1;
using AngleUnits::radiansPerDegree;

double sceneRadius(const abcRoom &room, const ViewExtraPoint &extra)
{
    const double radius = room.roomOriginInView().length();
    const auto &enabled = extra.enabled;
    if (!std::all_of(enabled.begin(), enabled.end(), [](bool flag) { return flag; }))
        return radius;
    bsMatrix inverse = room.current();
    inverse.invertRigid();
    return std::max(radius, inverse.transformPoint(extra.point).length());
}

} // namespace

double bestViewDistance(const abcRoom &room, const ViewProjection &projection, const ViewExtraPoint &extra)
{
    if (!room.isLoaded())
        return shortestDistance;
    const auto halfAngle = static_cast<float>(projection.fieldOfViewDegrees * radiansPerDegree / 2.0);
    double distance = sceneRadius(room, extra) / static_cast<double>(std::abs(std::sin(halfAngle))) * margin;
    distance = std::max(distance, distance * projection.height / projection.width);
    return std::isfinite(distance) && distance > shortestDistance ? distance : shortestDistance;
}
