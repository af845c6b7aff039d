#include "SweepFamilies.h"

#include <algorithm>
#include <cmath>

namespace
{

using SweepFamilies::Case;
using SweepFamilies::Family;
using Values = std::vector<double>;

Case measuredWith(PointSets &sets, const Values &references, double sigmaMm)
{
    return {asPoints(references), asPoints(sets.shuffled(sets.moved(references, sigmaMm)))};
}

/// The numbers as a person types them.
Values typed(Values values)
{
    for (double &value : values)
        value = 0.01 * std::round(100.0 * value);
    return values;
}

template <int sigma10>
Case noisy(PointSets &sets, int count)
{
    return measuredWith(sets, sets.box(count, sets.uniform(100, 3000)), 0.1 * sigma10);
}

Case unrelated(PointSets &sets, int count)
{
    return {asPoints(sets.box(count, 1500)), asPoints(sets.box(count, 1500))};
}

Case mirrored(PointSets &sets, int count)
{
    const Values references = sets.box(count, 1500);
    Values measured = sets.moved(references, 0.3);
    for (std::size_t i = 0; i < measured.size(); i += 3)
        measured[i] = -measured[i];
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

Case flat(PointSets &sets, int count)
{
    Values references = typed(sets.box(count, 1000));
    for (std::size_t i = 2; i < references.size(); i += 3)
        references[i] = 0.0;
    return measuredWith(sets, references, 0.3);
}

/// Corners of a square, one above the other for more than four points.
Case squares(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i)
        references.insert(references.end(), {i & 1 ? 300.0 : 0.0, i & 2 ? 300.0 : 0.0, i & 4 ? 300.0 : 0.0});
    return measuredWith(sets, references, sets.integer(0, 1) * 0.3);
}

Case circle(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::acos(-1.0) * i / count;
        references.insert(references.end(), {800.0 * std::cos(angle), 800.0 * std::sin(angle), 0.0});
    }
    return measuredWith(sets, references, sets.integer(0, 1) * 0.3);
}

/// Row by row, so that the first three points are collinear from six points on; else in shuffled order.
Case grid(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i) {
        const int row = i / 3;
        references.insert(references.end(), {100.0 * (i % 3), 100.0 * row, 0.0});
    }
    return measuredWith(sets, sets.integer(0, 3) == 0 ? references : sets.shuffled(references),
                        sets.integer(0, 1) * 0.2);
}

Case exactGrid(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i) {
        const int row = i / 2;
        references.insert(references.end(), {100.0 * (i % 2), 100.0 * row, 0.0});
    }
    return {asPoints(sets.shuffled(references)), asPoints(sets.shuffled(references))};
}

Case collinear(PointSets &sets, int count)
{
    const Values direction = sets.box(1, 2), start = sets.box(1, 1000);
    Values references;
    for (int i = 0; i < count; ++i) {
        const double along = sets.integer(-500, 500);
        for (std::size_t axis = 0; axis < 3; ++axis)
            references.push_back(start[axis] + along * direction[axis]);
    }
    return measuredWith(sets, sets.integer(0, 1) ? typed(references) : references, sets.integer(0, 1) * 0.3);
}

Case nearlyCollinear(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i)
        references.insert(references.end(), {100.0 * i + sets.noise(1), sets.noise(0.5), sets.noise(0.5)});
    return measuredWith(sets, references, 0.1);
}

Case exactLine(PointSets &sets, int count)
{
    Values references;
    for (int i = 0; i < count; ++i)
        references.insert(references.end(), {100.0 * i, 0.0, 0.0});
    return {asPoints(sets.shuffled(references)), asPoints(references)};
}

Values withTwins(PointSets &sets, Values points)
{
    const int count = static_cast<int>(points.size() / 3);
    for (int k = sets.integer(1, count - 1); k > 0; --k) {
        const auto from = static_cast<std::ptrdiff_t>(3 * sets.integer(0, count - 1));
        const auto to = static_cast<std::ptrdiff_t>(3 * sets.integer(0, count - 1));
        std::copy_n(points.begin() + from, 3, points.begin() + to);
    }
    return points;
}

Case twinReferences(PointSets &sets, int count)
{
    const Values points = sets.box(count, 1000);
    return {asPoints(withTwins(sets, points)), asPoints(sets.shuffled(sets.moved(points, 0.3)))};
}

Case twinMeasured(PointSets &sets, int count)
{
    const Values points = sets.box(count, 1000);
    return {asPoints(points), asPoints(sets.shuffled(withTwins(sets, sets.moved(points, 0.3))))};
}

Case twinsOnBothSides(PointSets &sets, int count)
{
    const Values references = withTwins(sets, typed(sets.box(count, 1000)));
    return {asPoints(references),
            asPoints(sets.shuffled(sets.integer(0, 1) ? references : sets.moved(references, 0)))};
}

/// A table after rows were added and only some filled.
Case halfFilled(PointSets &sets, int count)
{
    Values references = sets.box(count, 1000);
    const Values measured = sets.shuffled(sets.moved(references, 0.3));
    for (std::size_t i = 3 * static_cast<std::size_t>(sets.integer(0, count)); i < references.size(); ++i)
        references[i] = 0.0;
    return {asPoints(references), asPoints(measured)};
}

Case coincident(PointSets &sets, int count)
{
    const Values one = sets.box(1, 1000);
    Values references;
    for (int i = 0; i < count; ++i)
        references.insert(references.end(), one.begin(), one.end());
    const bool measuredToo = sets.integer(0, 1) == 1;
    return {asPoints(measuredToo ? sets.box(count, 500) : references), asPoints(references)};
}

Case tiny(PointSets &sets, int count)
{
    return measuredWith(sets, sets.box(count, 0.2), 0.02);
}

Case farAway(PointSets &sets, int count)
{
    Values references = sets.box(count, 500);
    for (double &value : references)
        value += 1e6;
    return measuredWith(sets, references, 0.3);
}

Case noiseOfTheSpacing(PointSets &sets, int count)
{
    return measuredWith(sets, sets.box(count, 1000), 200.0);
}

Case measuredTwice(PointSets &sets, int count)
{
    const Values references = sets.box(count, 1000);
    Values measured = sets.moved(references, 0.3);
    for (std::size_t axis = 0; axis < 3; ++axis)
        measured[axis] = measured[axis + 3] + sets.integer(0, 1) * sets.noise(0.3);
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

Case oneWrong(PointSets &sets, int count)
{
    const Values references = sets.box(count, 1000);
    Values measured = sets.moved(references, 0.3);
    for (std::size_t axis = 0; axis < 3; ++axis)
        measured[axis] += sets.uniform(-500, 500);
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

Case halfMoved(PointSets &sets, int count)
{
    const Values references = sets.box(count, 1000);
    Values measured = sets.moved(references, 0.3);
    for (std::size_t i = 0; i < measured.size() / 2; i += 3)
        measured[i] += 150.0;
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

Case inches(PointSets &sets, int count)
{
    const Values references = sets.box(count, 1000);
    Values measured = sets.moved(references, 0.3);
    for (double &value : measured)
        value *= 25.4;
    return {asPoints(references), asPoints(sets.shuffled(measured))};
}

/// A million metres away, or a hundredth of a millimetre large.
Case extreme(PointSets &sets, int count)
{
    if (sets.integer(0, 1))
        return measuredWith(sets, sets.box(count, 0.01), 0.0);
    Values references = sets.box(count, 1e9);
    return measuredWith(sets, references, sets.integer(0, 1) * 1e3);
}

/// Small whole numbers: many equal distances, many residuals that are exactly equal.
Case lattice(PointSets &sets, int count)
{
    Values references, measured;
    for (int i = 0; i < 3 * count; ++i) {
        references.push_back(sets.integer(0, 2));
        measured.push_back(sets.integer(0, 2));
    }
    return {asPoints(references), asPoints(measured)};
}

} // namespace

const std::vector<Family> &SweepFamilies::all()
{
    static const std::vector<Family> families = {
        {"without noise", noisy<0>},
        {"realistic noise", noisy<3>},
        {"strong noise", noisy<50>},
        {"huge noise", noisy<3000>},
        {"unrelated", unrelated},
        {"mirrored", mirrored},
        {"flat", flat},
        {"squares", squares},
        {"circle", circle},
        {"grid", grid},
        {"exact grid", exactGrid},
        {"collinear", collinear},
        {"nearly collinear", nearlyCollinear},
        {"exact line", exactLine},
        {"twin references", twinReferences},
        {"twin measured", twinMeasured},
        {"twins on both sides", twinsOnBothSides},
        {"half filled", halfFilled},
        {"coincident", coincident},
        {"tiny", tiny},
        {"far away", farAway},
        {"lattice", lattice},
        {"noise of the spacing", noiseOfTheSpacing},
        {"measured twice", measuredTwice},
        {"one wrong", oneWrong},
        {"half moved", halfMoved},
        {"inches", inches},
        {"extreme", extreme},
    };
    return families;
}
