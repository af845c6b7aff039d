#pragma once

#include <QString>

/// How a list shows a coordinate: with two decimals, as QString::number(x, 'f', 2) writes it.
///
/// Lists of a hundred thousand points are shown and taken as shown at once, so that both functions count in
/// hundredths where that is sure to give the same.
namespace CoordinateText
{

constexpr int decimals = 2;

[[nodiscard]] QString of(double coordinateMm);

/// What that text is as a number.
[[nodiscard]] double shownNumber(double coordinateMm);

} // namespace CoordinateText
