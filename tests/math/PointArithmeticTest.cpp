#include "PointArithmetic.h"

#include "TestRegistry.h"

#include <QtTest>

#include <Eigen/Geometry>

namespace
{

const MatchingPoint a = {12.5, -340.25, 7.0};
const MatchingPoint b = {-1.75, 88.0, 1024.5};

Eigen::Vector3d eigen(const MatchingPoint &point)
{
    return {point[0], point[1], point[2]};
}

MatchingPoint point(const Eigen::Vector3d &vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

} // namespace

class PointArithmeticTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldPointFromTheSecondToTheFirst() { QVERIFY(difference(a, b) == point(eigen(a) - eigen(b))); }

    void shouldMultiplyAsEigenDoes()
    {
        QCOMPARE(dotProduct(a, b), eigen(a).dot(eigen(b)));
        QVERIFY(crossProduct(a, b) == point(eigen(a).cross(eigen(b))));
        QCOMPARE(squaredLength(a), eigen(a).squaredNorm());
    }

    void shouldTurnRightHandedly()
    {
        const MatchingPoint z = {0.0, 0.0, 1.0};
        QVERIFY(crossProduct({1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}) == z);
    }

    void shouldLeaveNoNormalOnALine()
    {
        const MatchingPoint none = {0.0, 0.0, 0.0};
        QVERIFY(crossProduct({1.5, -2.0, 0.25}, {-3.0, 4.0, -0.5}) == none);
    }

    void shouldMeasureLengths()
    {
        QCOMPARE(lengthOf({2.0, -3.0, 6.0}), 7.0);
        QCOMPARE(distance({1.0, 1.0, 1.0}, {3.0, -2.0, 7.0}), 7.0);
    }

    void shouldMeasureLengthsWhoseSquaresOverflow()
    {
        QVERIFY(std::isinf(squaredLength({2e200, -3e200, 6e200})));
        QCOMPARE(lengthOf({2e200, -3e200, 6e200}), 7e200);
    }

    void shouldFindTheLargestCoordinateWhateverItsSignAndPlace()
    {
        QCOMPARE(largestCoordinate({}), 0.0);
        QCOMPARE(largestCoordinate({{-9.0, 2.0, 3.0}, {1.0, 8.0, 3.0}}), 9.0);
        QCOMPARE(largestCoordinate({{1.0, 2.0, 3.0}, {1.0, -10.0, 3.0}}), 10.0);
        QCOMPARE(largestCoordinate({{1.0, 2.0, 3.0}, {1.0, 8.0, 11.0}}), 11.0);
    }

    void shouldFindTheCentre()
    {
        const MatchingPoint expected = {2.0, 0.0, -3.0};
        QVERIFY(centreOf({{1.0, 4.0, -3.0}, {3.0, -4.0, -3.0}}) == expected);
        const MatchingPoint origin = {0.0, 0.0, 0.0};
        QVERIFY(centreOf({}) == origin);
    }

    void shouldTellHowFarPointsGoAlongAnAxis()
    {
        const MatchingPoints points = {{1.0, 5.0, -2.0}, {-3.0, 6.0, -2.0}, {0.0, 9.0, -2.0}};
        QCOMPARE(rangeAlong(points, 0).low, -3.0);
        QCOMPARE(rangeAlong(points, 0).high, 1.0);
        QCOMPARE(rangeAlong(points, 0).middle(), -1.0);
        QCOMPARE(rangeAlong(points, 1).extent(), 4.0);
        QCOMPARE(rangeAlong(points, 1).middle(), 7.0);
        QCOMPARE(rangeAlong(points, 2).extent(), 0.0);
    }

    void shouldKnowNoRangeWithoutPoints() { QVERIFY(rangeAlong({}, 0).low > rangeAlong({}, 0).high); }

    void shouldReachTheElementsOfAList()
    {
        std::vector<int> list = {10, 20, 30};
        at(list, 2) = 33;
        const std::vector<int> &fixed = list;
        QCOMPARE(at(fixed, 0), 10);
        QCOMPARE(at(fixed, 2), 33);
    }
};

ROOM_TEST_CLASS(PointArithmeticTest)
#include "PointArithmeticTest.moc"
