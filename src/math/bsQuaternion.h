#pragma once

#include "bsVector.h"

/// A rotation as a unit quaternion; w is the scalar part. The default is no rotation.
struct bsQuaternion {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;

    bsQuaternion() = default;
    bsQuaternion(double xValue, double yValue, double zValue, double wValue)
        : x(xValue)
        , y(yValue)
        , z(zValue)
        , w(wValue)
    {
    }

    static bsQuaternion identity() { return {}; }

    /// The rotation by `degrees` about `axis`, which need not have length 1.
    static bsQuaternion fromAxisAngle(double degrees, bsVector axis);

    /// The product q(eta about x) * q(theta about y) * q(phi about z), angles in degrees.
    static bsQuaternion fromAngles(double eta, double theta, double phi);

    /// Makes the length 1 in place; a quaternion shorter than 1e-7 becomes the identity.
    void normalize();

    [[nodiscard]] bool isFinite() const;
};

/// Hamilton product, normalised: the rotation `b` followed by the rotation `a`.
bsQuaternion operator*(const bsQuaternion &a, const bsQuaternion &b);

/// Exact comparison of the four components; q and -q differ.
bool operator==(const bsQuaternion &a, const bsQuaternion &b);
bool operator!=(const bsQuaternion &a, const bsQuaternion &b);
