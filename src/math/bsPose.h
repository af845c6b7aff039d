#pragma once

#include "bsMatrix.h"
#include "bsQuaternion.h"
#include "bsVector.h"

/// A position and an orientation. The further number is only copied along.
struct bsPose {
    bsVector position;
    bsQuaternion orientation;
    double extra = 0.0;

    bsPose() = default;
    bsPose(const bsPose &other) = default;
    ~bsPose() = default;

    /// Copies, but derives the orientation anew from the other one's rotation matrix.
    bsPose &operator=(const bsPose &other);

    /// The rotation of the orientation with the position as translation.
    [[nodiscard]] bsMatrix matrix() const;
};
