#include "FitSketch.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

namespace
{

const MatchingPoints corner = {{0, 0, 0}, {400, 0, 0}, {0, 200, 0}};

double across(const FitSketch::Place &from, const FitSketch::Place &to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

MatchingPoints shifted(MatchingPoints points, std::size_t index, const MatchingPoint &by)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        points[index][axis] += by[axis];
    return points;
}

} // namespace

class FitSketchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldEnlargeNothingAtFirst();
    void shouldLookAlongTheAxisOfTheLeastExtent_data();
    void shouldLookAlongTheAxisOfTheLeastExtent();
    void shouldKeepTheProportionsOfThePlane();
    void shouldDrawUpWhatIsUp_data();
    void shouldDrawUpWhatIsUp();
    void shouldEnlargeErrorsByARoundNumber();
    void shouldNotEnlargeErrorsThatAreLarge();
    void shouldStayInsideThePicture();
    void shouldPutPointsOfOnePlaceInTheMiddle();
    void shouldShowPointsWithoutErrorsAsTheyAre();
};

void FitSketchTest::shouldEnlargeNothingAtFirst()
{
    const FitSketch sketch;
    QCOMPARE(sketch.enlargement, 1.0);
    const FitSketch::Pair pair;
    QCOMPARE(pair.reference.x, 0.0);
    QCOMPARE(pair.mapped.y, 0.0);
}

void FitSketchTest::shouldLookAlongTheAxisOfTheLeastExtent_data()
{
    QTest::addColumn<int>("leastAxis");
    QTest::newRow("x") << 0;
    QTest::newRow("y") << 1;
    QTest::newRow("z") << 2;
}

void FitSketchTest::shouldLookAlongTheAxisOfTheLeastExtent()
{
    QFETCH(int, leastAxis);
    MatchingPoint far = {100, 100, 100};
    far[static_cast<std::size_t>(leastAxis)] = 10;
    QCOMPARE(static_cast<int>(FitSketch::widestView({{0, 0, 0}, far})), leastAxis);
}

void FitSketchTest::shouldKeepTheProportionsOfThePlane()
{
    const FitSketch sketch = FitSketch::of(corner, corner, FitSketch::Along::Z, 500, 400);
    QCOMPARE(across(sketch.pairs[0].reference, sketch.pairs[1].reference),
             2.0 * across(sketch.pairs[0].reference, sketch.pairs[2].reference));
    // 500 wide, less 15 % of the shorter side at either end
    QCOMPARE(across(sketch.pairs[0].reference, sketch.pairs[1].reference), 380.0);
}

void FitSketchTest::shouldDrawUpWhatIsUp_data()
{
    QTest::addColumn<int>("along");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("up");
    QTest::newRow("along x") << 0 << 1 << 2;
    QTest::newRow("along y") << 1 << 0 << 2;
    QTest::newRow("along z") << 2 << 0 << 1;
}

void FitSketchTest::shouldDrawUpWhatIsUp()
{
    QFETCH(int, along);
    QFETCH(int, right);
    QFETCH(int, up);
    MatchingPoints points(3);
    points[1][static_cast<std::size_t>(right)] = 100;
    points[2][static_cast<std::size_t>(up)] = 100;

    const FitSketch sketch = FitSketch::of(points, points, static_cast<FitSketch::Along>(along), 300, 300);

    QVERIFY(sketch.pairs[1].reference.x > sketch.pairs[0].reference.x);
    QCOMPARE(sketch.pairs[1].reference.y, sketch.pairs[0].reference.y);
    QVERIFY(sketch.pairs[2].reference.y < sketch.pairs[0].reference.y);
    QCOMPARE(sketch.pairs[2].reference.x, sketch.pairs[0].reference.x);
}

/// 500 x 400: 0.95 of the picture's lengths for a millimetre, an error may be 50 long. One of 0.1 mm is drawn
/// 500 times as large, at 47.5; 1000 times would be too long.
void FitSketchTest::shouldEnlargeErrorsByARoundNumber()
{
    const FitSketch sketch =
        FitSketch::of(corner, shifted(corner, 0, {0.1, 0, 0}), FitSketch::Along::Z, 500, 400);
    QCOMPARE(sketch.enlargement, 500.0);
    QVERIFY(std::abs(sketch.pairs[0].mapped.x - sketch.pairs[0].reference.x - 47.5) < 0.1);
}

void FitSketchTest::shouldNotEnlargeErrorsThatAreLarge()
{
    const FitSketch sketch =
        FitSketch::of(corner, shifted(corner, 1, {0, 900, 0}), FitSketch::Along::Z, 500, 400);
    QCOMPARE(sketch.enlargement, 1.0);
}

void FitSketchTest::shouldStayInsideThePicture()
{
    PointSets sets(3);
    for (int trial = 0; trial < 300; ++trial) {
        const MatchingPoints references = asPoints(sets.box(6, std::pow(10.0, sets.integer(-2, 9))));
        MatchingPoints mapped = references;
        for (MatchingPoint &point : mapped)
            point[2] += sets.noise(std::pow(10.0, sets.integer(-9, 3)));
        const FitSketch sketch = FitSketch::of(references, mapped, FitSketch::Along::X, 400, 240);
        for (const FitSketch::Pair &pair : sketch.pairs) {
            for (const FitSketch::Place &place : {pair.reference, pair.mapped})
                QVERIFY(place.x >= 0 && place.x <= 400 && place.y >= 0 && place.y <= 240);
        }
    }
}

void FitSketchTest::shouldPutPointsOfOnePlaceInTheMiddle()
{
    const MatchingPoints same(3, {5, 6, 7});
    const FitSketch sketch = FitSketch::of(same, same, FitSketch::Along::Z, 300, 200);
    QCOMPARE(sketch.pairs[2].reference.x, 150.0);
    QCOMPARE(sketch.pairs[2].reference.y, 100.0);
}

void FitSketchTest::shouldShowPointsWithoutErrorsAsTheyAre()
{
    const FitSketch sketch = FitSketch::of(corner, corner, FitSketch::Along::Z, 500, 400);
    QCOMPARE(sketch.enlargement, 1.0);
    QCOMPARE(across(sketch.pairs[1].reference, sketch.pairs[1].mapped), 0.0);
}

ROOM_TEST_CLASS(FitSketchTest)

#include "FitSketchTest.moc"
