#pragma once

#include <array>

/// A point or a direction, millimetres unless it is a direction.
struct SimVector {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

SimVector operator+(const SimVector &a, const SimVector &b);
SimVector operator-(const SimVector &a, const SimVector &b);
SimVector operator*(double factor, const SimVector &a);
SimVector cross(const SimVector &a, const SimVector &b);
double squaredLength(const SimVector &a);
double length(const SimVector &a);

/// A 3 by 3 matrix, its nine numbers row by row. The default is the identity.
struct SimRotation {
    std::array<double, 9> rows = {1, 0, 0, 0, 1, 0, 0, 0, 1};

    /// Rx(rx) * Ry(ry) * Rz(rz), right-handed, angles in degrees.
    static SimRotation fromDegrees(double rx, double ry, double rz);

    /// The angles that fromDegrees() takes, each in [-180, 180], ry in [-90, 90]. At an ry of 90 or -90,
    /// where only the sum or the difference of the others counts, rz is 0.
    std::array<double, 3> degrees() const;

    /// The matrix with these three vectors as its rows.
    static SimRotation fromRows(const SimVector &x, const SimVector &y, const SimVector &z);

    SimVector column(int index) const;
    SimRotation transposed() const;

    /// Whether every entry of R * transposed(R) - I stays below the tolerance and the determinant is
    /// positive.
    bool isOrthonormal(double tolerance) const;
};

SimVector operator*(const SimRotation &a, const SimVector &v);
SimRotation operator*(const SimRotation &a, const SimRotation &b);

/// A rigid motion: `pose * p` is rotation * p + position.
struct SimPose {
    SimVector position;
    SimRotation rotation;

    SimPose inverse() const;
};

SimVector operator*(const SimPose &a, const SimVector &v);
SimPose operator*(const SimPose &a, const SimPose &b);
