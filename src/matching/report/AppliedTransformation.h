#pragma once

#include "RoomTrafoData.h"

class bsMatrix;

/// What the controller gets when a matching is applied, which leaves the scaling as it is.
///
/// `roomFromReference` is rigid and in millimetres. It goes the way of the room in which it is shown, so that
/// the last decimal is the same.
[[nodiscard]] RoomTrafoData appliedTransformation(const bsMatrix &roomFromReference, double scaling);
