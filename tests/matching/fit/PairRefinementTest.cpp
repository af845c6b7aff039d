#include "PairRefinement.h"

#include "TestRegistry.h"
#include "TransformChecks.h"
#include "trafo3d.h"

#include <QtTest>

#include <cmath>

using namespace TransformChecks;

namespace
{

/// The corners of a box of 100 x 60 x 40 at (10, 20, 30), again and again.
Points corners(int count)
{
    Points points;
    for (int i = 0; i < count; ++i) {
        points.push_back((i & 1) != 0 ? 110.0 : 10.0);
        points.push_back((i & 2) != 0 ? 80.0 : 20.0);
        points.push_back((i & 4) != 0 ? 70.0 : 30.0);
    }
    return points;
}

Points moved(const Points &points, double x, double y, double z)
{
    Points result;
    for (std::size_t i = 0; i < points.size(); i += 3)
        result.insert(result.end(), {points[i] + x, points[i + 1] + y, points[i + 2] + z});
    return result;
}

bool isNear(double value, double expected)
{
    return std::fabs(value - expected) < 1e-9;
}

} // namespace

/// Numbers of points on both sides of the fifty for which no memory is taken.
class PairRefinementTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheRootMeanSquareDistance_data() { addCounts(); }
    void shouldGiveTheRootMeanSquareDistance()
    {
        // GIVEN
        QFETCH(int, count);
        const Points sources = corners(count);
        const Points targets = moved(sources, 2.0, -3.0, 6.0);
        // WHEN
        PairRefinement pairs(targets.data(), sources.data(), count);
        // THEN
        QVERIFY(isNear(pairs.residual(identity.data()), 7.0));
    }

    void shouldStepByAShiftInTenthsOfAMillimetre_data() { addCounts(); }
    void shouldStepByAShiftInTenthsOfAMillimetre()
    {
        // GIVEN
        QFETCH(int, count);
        const Points sources = corners(count);
        const Points targets = moved(sources, 1.0, -2.0, 3.0);
        PairRefinement pairs(targets.data(), sources.data(), count);
        (void)pairs.residual(identity.data());
        // WHEN
        double step[7];
        QVERIFY(pairs.solveStep(step, identity.data(), 3, false));
        // THEN
        const double expected[7] = {0.0, 0.0, 0.0, 10.0, -20.0, 30.0, 0.0};
        for (int i = 0; i < 7; ++i)
            QVERIFY2(isNear(step[i], expected[i]), qPrintable(QString::number(i)));
    }

    void shouldStepByAScaleInThousandths()
    {
        // GIVEN
        const Points sources = corners(8);
        Points targets = sources;
        for (double &value : targets)
            value *= 1.002;
        PairRefinement pairs(targets.data(), sources.data(), 8);
        (void)pairs.residual(identity.data());
        // WHEN
        double step[7];
        QVERIFY(pairs.solveStep(step, identity.data(), 3, true));
        // THEN
        QVERIFY(isNear(step[6], 2.0));
        QVERIFY(isNear(step[3], 0.0));
    }

    void shouldTurnThePointsOnTheTargets()
    {
        // GIVEN
        const Points sources = corners(8);
        Points targets;
        for (std::size_t i = 0; i < sources.size(); i += 3) // a turn of 0.0001 about z
            targets.insert(targets.end(), {sources[i] - 1e-4 * sources[i + 1],
                                           sources[i + 1] + 1e-4 * sources[i], sources[i + 2]});
        PairRefinement pairs(targets.data(), sources.data(), 8);
        const double before = pairs.residual(identity.data());
        // WHEN
        double step[7];
        QVERIFY(pairs.solveStep(step, identity.data(), 3, false));
        Transform stepped;
        trafo3d_applyparams(stepped.data(), identity.data(), step);
        // THEN
        QVERIFY(before > 5e-3);
        QVERIFY(pairs.residual(stepped.data()) < before / 50.0);
        QVERIFY(std::fabs(std::fabs(step[2]) - 0.01) < 1e-6);
    }

    void shouldHoldTheThirdRotationWithTwo()
    {
        // GIVEN
        const Points sources = corners(8);
        Points targets = sources;
        std::swap(targets[0], targets[1]);
        PairRefinement pairs(targets.data(), sources.data(), 8);
        (void)pairs.residual(identity.data());
        // WHEN
        double step[7];
        QVERIFY(pairs.solveStep(step, identity.data(), 2, false));
        // THEN
        QCOMPARE(step[2], 0.0);
        QVERIFY(step[0] != 0.0 || step[1] != 0.0);
    }

    void shouldSolveNothingWithoutEnoughDifferentPoints_data()
    {
        QTest::addColumn<Points>("sources");
        QTest::newRow("one point") << corners(1);
        QTest::newRow("equal points") << Points{1, 2, 3, 1, 2, 3, 1, 2, 3};
    }
    void shouldSolveNothingWithoutEnoughDifferentPoints()
    {
        // GIVEN
        QFETCH(Points, sources);
        PairRefinement pairs(sources.data(), sources.data(), countOf(sources));
        QCOMPARE(pairs.residual(identity.data()), 0.0);
        // WHEN, THEN
        double step[7];
        QVERIFY(!pairs.solveStep(step, identity.data(), 3, false));
    }

private:
    static void addCounts()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("five") << 5;
        QTest::newRow("fifty-two") << 52;
        QTest::newRow("fifty-three") << 53;
    }
};

ROOM_TEST_CLASS(PairRefinementTest)
#include "PairRefinementTest.moc"
