#include "RoomAngles.h"

#include "AngleUnits.h"
#include "AxisSnap.h"
#include "RoomTrafoData.h"
#include "bsMatrix.h"

#include <algorithm>
#include <cmath>

namespace
{

using AngleUnits::degreesPerRadian;

double withPositiveHalfTurn(double degrees)
{
    return degrees > -180.01 && degrees <= -180.0 ? 180.0 : degrees;
}

/// The angle to show, in degrees: 0 if it is not finite, and a half turn is +180 even where noise makes it
/// fall short of -180.
double shownDegrees(double radians)
{
    constexpr double noise = 1e-5;
    const double degrees = radians * degreesPerRadian;
    if (!std::isfinite(degrees))
        return 0.0;
    return degrees <= -180.0 + noise ? 180.0 : degrees;
}

/// Whether the controller would be told 0 for both numbers from which eta, or for both from which phi is
/// read.
bool isGimbalLock(const std::array<double, 9> &rows)
{
    const auto isToldAsZero = [&rows](std::size_t i) { return std::abs(rows[i]) < rotationHalfDecimal; };
    return (isToldAsZero(5) && isToldAsZero(8)) || (isToldAsZero(0) && isToldAsZero(1));
}

} // namespace

bool operator==(const RoomAngles &a, const RoomAngles &b)
{
    return a.eta == b.eta && a.theta == b.theta && a.phi == b.phi;
}

bool operator!=(const RoomAngles &a, const RoomAngles &b)
{
    return !(a == b);
}

bsMatrix rotationFromAngles(double eta, double theta, double phi)
{
    const double cx = std::cos(eta / degreesPerRadian);
    const double sx = std::sin(eta / degreesPerRadian);
    const double cy = std::cos(theta / degreesPerRadian);
    const double sy = std::sin(theta / degreesPerRadian);
    const double cz = std::cos(phi / degreesPerRadian);
    const double sz = std::sin(phi / degreesPerRadian);
    bsMatrix result;
    result.setColumn(0, {cz * cy, cz * sy * sx + cx * sz, sz * sx - cz * sy * cx}, 0.0);
    result.setColumn(1, {-sz * cy, cz * cx - sz * sy * sx, sz * sy * cx + cz * sx}, 0.0);
    result.setColumn(2, {sy, -cy * sx, cy * cx}, 0.0);
    return result;
}

bsMatrix rotationFromAngles(const RoomAngles &angles)
{
    return rotationFromAngles(angles.eta, angles.theta, angles.phi);
}

RoomAngles anglesFromRotation(const std::array<double, 9> &rows)
{
    const auto [r00, r01, r02, r10, r11, r12, r20, r21, r22] = rows;
    RoomAngles angles;
    const double theta = std::asin(std::clamp(r02, -1.0, 1.0));
    const bool gimbalLock = (r12 == 0.0 && r22 == 0.0) || (r01 == 0.0 && r00 == 0.0);
    const double phi = gimbalLock ? 0.0 : -std::atan2(r01, r00);
    const double eta = gimbalLock ? std::atan2(r21, r11) : -std::atan2(r12, r22);
    angles.eta = withPositiveHalfTurn(eta * degreesPerRadian);
    angles.theta = withPositiveHalfTurn(theta * degreesPerRadian);
    angles.phi = withPositiveHalfTurn(phi * degreesPerRadian);
    return angles;
}

RoomAngles displayedAngles(const std::array<double, 9> &rows)
{
    std::array<double, 9> copy = rows;
    snapAxisAligned(copy);
    const auto [r00, r01, r02, r10, r11, r12, r20, r21, r22] = copy;
    const double theta = shownDegrees(std::atan2(r02, std::hypot(r00, r01)));
    if (isGimbalLock(copy))
        return {shownDegrees(std::atan2(r21, r11)), theta, 0.0};
    const double cosine = std::hypot(r12, r22); // of theta; divided by it, r22 and -r12 turn back by eta
    const double phi = std::atan2((r22 * r10 - r12 * r20) / cosine, (r22 * r11 - r12 * r21) / cosine);
    return {shownDegrees(-std::atan2(r12, r22)), theta, shownDegrees(phi)};
}

std::array<double, 9> controllerRows(const bsMatrix &matrix)
{
    return {matrix.at(0, 0), matrix.at(0, 1), matrix.at(0, 2), matrix.at(1, 0), matrix.at(1, 1),
            matrix.at(1, 2), matrix.at(2, 0), matrix.at(2, 1), matrix.at(2, 2)};
}

bsMatrix rotationFromControllerRows(const std::array<double, 9> &rows)
{
    bsMatrix result;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            result.at(row, column) = rows[static_cast<std::size_t>(3 * row + column)];
    }
    return result;
}
