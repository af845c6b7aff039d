#pragma once

/// A point or a direction in millimetres.
struct bsVector {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    /// A vector, or a quaternion, that is shorter has no direction.
    static constexpr double shortestLength = 1e-7;

    bsVector() = default;
    bsVector(double xValue, double yValue, double zValue)
        : x(xValue)
        , y(yValue)
        , z(zValue)
    {
    }

    void set(double xValue, double yValue, double zValue);
    void zero();

    /// Divides every component in place; a zero divisor gives infinities as usual in floating point.
    void divide(double divisor);

    /// Makes the length 1 in place. A vector shorter than 1e-7 stays as it is.
    void normalize();

    [[nodiscard]] double length() const;
    [[nodiscard]] bool isFinite() const;
};

bsVector operator+(const bsVector &a, const bsVector &b);
bsVector operator-(const bsVector &a, const bsVector &b);

/// Exact comparison of the three components.
bool operator==(const bsVector &a, const bsVector &b);
bool operator!=(const bsVector &a, const bsVector &b);
