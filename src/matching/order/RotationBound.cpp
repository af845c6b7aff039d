#include "RotationBound.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

/// A residual may round down to its single-precision value, and is itself computed with rounding.
constexpr double singlePrecisionSlack = 2e-7;
constexpr double coordinateSlack = 4e-12;
constexpr double boundSlack = 2e-12;

/// The coefficients of the polynomial.
struct Invariants {
    double frobenius;
    double adjugate;
    double determinant;
};

Invariants invariantsOf(const std::array<double, 9> &m)
{
    const MatchingPoint x = {m[0], m[1], m[2]}, y = {m[3], m[4], m[5]}, z = {m[6], m[7], m[8]};
    const MatchingPoint normal = crossProduct(y, z);
    return {squaredLength(x) + squaredLength(y) + squaredLength(z),
            squaredLength(normal) + squaredLength(crossProduct(z, x)) + squaredLength(crossProduct(x, y)),
            dotProduct(x, normal)};
}

double powerOfTwoAbove(double value)
{
    int exponent = 0;
    std::frexp(value, &exponent);
    return std::ldexp(1.0, std::min(exponent, std::numeric_limits<double>::max_exponent - 1));
}

double squareOf(double value)
{
    return value * value;
}

} // namespace

RotationBound::RotationBound(const MatchingPoints &references, const MatchingPoints &measured)
    : m_unitMm(powerOfTwoAbove(std::max(largestCoordinate(references), largestCoordinate(measured))))
    , m_margin(5e-14 + 2e-15 * static_cast<double>(references.size()))
    , m_references(prepared(references, m_unitMm))
    , m_measured(prepared(measured, m_unitMm))
{
}

RotationBound::Side RotationBound::prepared(const MatchingPoints &points, double unitMm)
{
    Side side;
    for (const MatchingPoint &point : points)
        side.centred.push_back({point[0] / unitMm, point[1] / unitMm, point[2] / unitMm});
    const MatchingPoint centre = centreOf(side.centred);
    for (MatchingPoint &point : side.centred) {
        point = difference(point, centre);
        side.lengths.push_back(std::sqrt(squaredLength(point)));
    }
    side.byLength.resize(points.size());
    std::iota(side.byLength.begin(), side.byLength.end(), 0);
    std::sort(side.byLength.begin(), side.byLength.end(),
              [&side](int left, int right) { return at(side.lengths, left) < at(side.lengths, right); });
    return side;
}

RotationBound::Moments RotationBound::extended(const Moments &moments, int reference, int measured) const
{
    const MatchingPoint &a = at(m_references.centred, reference), &b = at(m_measured.centred, measured);
    Moments result;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            result.products[3 * row + column] = moments.products[3 * row + column] + a[row] * b[column];
    }
    result.squares = moments.squares + squareOf(at(m_references.lengths, reference)) +
                     squareOf(at(m_measured.lengths, measured));
    result.count = moments.count + 1;
    return result;
}

RotationBound::Moments RotationBound::momentsOf(const PointOrder &order) const
{
    Moments moments;
    for (std::size_t i = 0; i < order.size(); ++i)
        moments = extended(moments, static_cast<int>(i), order[i]);
    return moments;
}

double RotationBound::sumWithin(double rmsMm) const
{
    const double rms = rmsMm / m_unitMm * (1.0 + singlePrecisionSlack) + coordinateSlack;
    return static_cast<double>(m_references.centred.size()) * rms * rms * (1.0 + boundSlack);
}

bool RotationBound::exceeds(const Moments &moments, double limit) const
{
    const double half = 0.5 * moments.squares;
    const double x = half * (1.0 - m_margin) - 0.5 * limit;
    if (!(x > 0.0))
        return false;
    const Invariants of = invariantsOf(moments.products);
    const double square = x * x;
    const double squareMargin = m_margin * half * half;
    // Up to two pairs the determinant is zero, the largest root may be a double one and is known.
    if (moments.count <= 2)
        return square > of.frobenius + 2.0 * std::sqrt(of.adjugate) + squareMargin;
    const double difference = square - of.frobenius;
    return 3.0 * square - of.frobenius > squareMargin &&
           4.0 * (x * difference - 2.0 * of.determinant) > squareMargin * half &&
           difference * difference - 8.0 * x * of.determinant - 4.0 * of.adjugate >
               squareMargin * half * half;
}

bool RotationBound::exceedsWith(const Moments &moments, int reference, int measured, double limit) const
{
    return exceeds(extended(moments, reference, measured), limit);
}

double RotationBound::estimate(const Moments &moments)
{
    const Invariants of = invariantsOf(moments.products);
    if (moments.count <= 2)
        return moments.squares - 2.0 * std::sqrt(of.frobenius + 2.0 * std::sqrt(of.adjugate));
    double x = std::min(0.5 * moments.squares, std::sqrt(3.0 * of.frobenius));
    for (int step = 0; step < 8; ++step) {
        const double difference = x * x - of.frobenius;
        const double value = difference * difference - 8.0 * x * of.determinant - 4.0 * of.adjugate;
        const double slope = 4.0 * x * difference - 8.0 * of.determinant;
        if (!(slope > 0.0) || !(value > 0.0))
            break;
        x -= value / slope;
    }
    return moments.squares - 2.0 * x;
}

double RotationBound::lengthRest(const std::vector<char> &references, const std::vector<char> &measured) const
{
    double rest = 0.0;
    std::size_t next = 0;
    for (const int reference : m_references.byLength) {
        if (at(references, reference))
            continue;
        while (at(measured, m_measured.byLength[next]))
            ++next;
        const int partner = m_measured.byLength[next++];
        rest += squareOf(at(m_references.lengths, reference) - at(m_measured.lengths, partner));
    }
    return rest;
}
