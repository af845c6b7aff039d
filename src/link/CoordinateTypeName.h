#pragma once

#include "CoordinateType.h"

class QByteArray;

/// What the controller calls the coordinate types.
namespace CoordinateTypeName
{

constexpr auto normal = "normal";
constexpr auto firstCamera = "first_camera";
constexpr auto midCamera = "mid_camera";

/// Unknown for a name that the module has not learned; only the exact words count.
[[nodiscard]] CoordinateType typeOf(const QByteArray &name);

} // namespace CoordinateTypeName
