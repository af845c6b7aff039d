#include "AxisAssigner.h"

#include <algorithm>
#include <cmath>

namespace
{

enum Axis { X = 0, MinusX = 1, Y = 2, MinusY = 3, Z = 4, MinusZ = 5 };

struct Assignment {
    int right;
    int top;
    int towardsViewer;
};

struct DefaultAxes {
    int right;
    int top;
};

constexpr int quarterTurn = 90;

constexpr std::array<Assignment, 24> assignments{{
    {X, Y, Z},           {X, MinusY, MinusZ},      {X, Z, MinusY},      {X, MinusZ, Y},
    {MinusX, Y, MinusZ}, {MinusX, MinusY, Z},      {MinusX, Z, Y},      {MinusX, MinusZ, MinusY},
    {Y, X, MinusZ},      {Y, MinusX, Z},           {Y, Z, X},           {Y, MinusZ, MinusX},
    {MinusY, X, Z},      {MinusY, MinusX, MinusZ}, {MinusY, Z, MinusX}, {MinusY, MinusZ, X},
    {Z, X, Y},           {Z, MinusX, MinusY},      {Z, Y, MinusX},      {Z, MinusY, X},
    {MinusZ, X, MinusY}, {MinusZ, MinusX, Y},      {MinusZ, Y, X},      {MinusZ, MinusY, MinusX},
}};

constexpr std::array<WholeAngles, 24> normalAngles{{
    {90, 0, 0},  {-90, 0, 0},   {0, 0, 0},     {180, 0, 0},   {-90, 0, 180}, {90, 0, 180},
    {0, 0, 180}, {180, 0, 180}, {-90, 0, -90}, {90, 0, -90},  {0, 0, -90},   {180, 0, -90},
    {90, 0, 90}, {-90, 0, 90},  {0, 0, 90},    {180, 0, 90},  {180, 90, 0},  {0, 90, 0},
    {90, 90, 0}, {-90, 90, 0},  {0, -90, 0},   {180, -90, 0}, {90, -90, 0},  {-90, -90, 0},
}};

constexpr std::array<WholeAngles, 24> otherAngles{{
    {0, 0, 0},     {180, 0, 0},  {-90, 0, 0},   {90, 0, 0},   {180, 0, 180}, {0, 0, 180},
    {-90, 0, 180}, {90, 0, 180}, {180, 0, -90}, {0, 0, -90},  {-90, 0, -90}, {90, 0, -90},
    {0, 0, 90},    {180, 0, 90}, {-90, 0, 90},  {90, 0, 90},  {90, 90, 0},   {-90, 90, 0},
    {0, 90, 0},    {180, 90, 0}, {-90, -90, 0}, {90, -90, 0}, {0, -90, 0},   {180, -90, 0},
}};

DefaultAxes defaultAxes(CoordinateType type)
{
    return type == CoordinateType::Normal ? DefaultAxes{X, Z} : DefaultAxes{X, Y};
}

/// The number of the first row with this property, or -1.
template <typename Property>
int firstRow(Property property)
{
    const auto *const row = std::find_if(assignments.begin(), assignments.end(), property);
    return row == assignments.end() ? -1 : static_cast<int>(row - assignments.begin());
}

int rowOf(int right, int top)
{
    return firstRow([=](const Assignment &row) { return row.right == right && row.top == top; });
}

/// An axis code after one quarter turn about coordinate axis `about` (0, 1, 2 for x, y, z): the next
/// coordinate axis becomes the one after it, and that one becomes the negative of the next.
int turnedOnce(int axis, int about)
{
    const int next = (about + 1) % 3;
    const int afterNext = (about + 2) % 3;
    const int sign = axis & 1;
    if (axis / 2 == next)
        return 2 * afterNext + sign;
    return axis / 2 == afterNext ? AxisAssigner::negated(2 * next + sign) : axis;
}

/// An axis code turned by the transpose of the room rotation: about x first, each time by the negative angle.
int turnedBack(int axis, const WholeAngles &angles)
{
    for (int about = 0; about < 3; ++about) {
        const int quarters = -angles[static_cast<std::size_t>(about)] / quarterTurn;
        for (int turns = ((quarters % 4) + 4) % 4; turns > 0; --turns)
            axis = turnedOnce(axis, about);
    }
    return axis;
}

/// Rounds up; false where no multiple of a quarter turn results. Whole turns are dropped.
bool toQuarterAngle(double angle, int *whole)
{
    const double turned = std::fmod(std::ceil(angle), 360.0);
    if (std::isnan(turned) || std::fmod(turned, quarterTurn) != 0.0)
        return false;
    *whole = static_cast<int>(turned);
    return true;
}

} // namespace

const char *AxisAssigner::axisText(int axis)
{
    static constexpr std::array<const char *, axisCodes> texts{"x", "-x", "y", "-y", "z", "-z"};
    return texts.at(static_cast<std::size_t>(axis));
}

void AxisAssigner::setCoordinateType(CoordinateType type)
{
    m_type = type == CoordinateType::Unknown ? CoordinateType::None : type;
    assignDefault();
}

void AxisAssigner::assignDefault()
{
    const DefaultAxes axes = defaultAxes(m_type);
    m_row = rowOf(axes.right, axes.top);
}

bool AxisAssigner::assignAngles(double rx, double ry, double rz)
{
    WholeAngles angles{};
    const bool areQuarters =
        toQuarterAngle(rx, &angles[0]) && toQuarterAngle(ry, &angles[1]) && toQuarterAngle(rz, &angles[2]);
    if (areQuarters)
        assignTurned(angles);
    else
        assignDefault();
    return areQuarters;
}

void AxisAssigner::assignTurned(const WholeAngles &angles)
{
    const DefaultAxes axes = defaultAxes(m_type);
    m_row = rowOf(turnedBack(axes.right, angles), turnedBack(axes.top, angles));
}

void AxisAssigner::chooseRight(int axis)
{
    int row = rowOf(axis, top());
    if (row < 0)
        row = firstRow([axis](const Assignment &candidate) { return candidate.right == axis; });
    m_row = row < 0 ? m_row : row;
}

void AxisAssigner::chooseTop(int axis)
{
    int row = rowOf(right(), axis);
    if (row < 0)
        row = firstRow([axis](const Assignment &candidate) { return candidate.top == axis; });
    m_row = row < 0 ? m_row : row;
}

int AxisAssigner::right() const
{
    return assignments.at(static_cast<std::size_t>(m_row)).right;
}

int AxisAssigner::top() const
{
    return assignments.at(static_cast<std::size_t>(m_row)).top;
}

DirectionAxes AxisAssigner::directionAxes() const
{
    const Assignment &row = assignments.at(static_cast<std::size_t>(m_row));
    return {negated(row.right), row.right,         row.top,
            negated(row.top),   row.towardsViewer, negated(row.towardsViewer)};
}

WholeAngles AxisAssigner::angles() const
{
    return (m_type == CoordinateType::Normal ? normalAngles : otherAngles)
        .at(static_cast<std::size_t>(m_row));
}
