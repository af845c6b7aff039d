#pragma once

#include <array>

/// The controller's extra transformation of the room, exactly as its parameters hold it.
///
/// Translation in millimetres; rotation row by row (R00, R01, R02, R10, ...); scaling without unit.
struct RoomTrafoData {
    std::array<double, 3> translation = {0.0, 0.0, 0.0};
    std::array<double, 9> rotation = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
    double scaling = 1.0;
};

/// The decimals with which the controller is told a rotation, a translation and a scaling.
constexpr int rotationDecimals = 8;
constexpr int translationDecimals = 3;
constexpr int scalingDecimals = 5;

/// Half of the last decimal of a rotation and a translation: what is smaller is told as 0.
constexpr double rotationHalfDecimal = 0.5e-8;
constexpr double translationHalfDecimal = 0.5e-3;

static_assert(sizeof(RoomTrafoData) == 13 * sizeof(double));

/// Exact comparison of all 13 numbers.
inline bool operator==(const RoomTrafoData &a, const RoomTrafoData &b)
{
    return a.translation == b.translation && a.rotation == b.rotation && a.scaling == b.scaling;
}

inline bool operator!=(const RoomTrafoData &a, const RoomTrafoData &b)
{
    return !(a == b);
}
