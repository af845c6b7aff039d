#include "ClosestPair.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

class ClosestPairTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindWhatComparingAllFinds()
    {
        PointSets sets(41);
        int found = 0;
        for (int trial = 0; trial < 500; ++trial) {
            const int count = sets.integer(0, 30);
            MatchingPoints points;
            const bool flat = sets.integer(0, 1) == 1;
            for (int i = 0; i < count; ++i)
                points.push_back(
                    {flat ? 7.0 : sets.uniform(0, 10), sets.uniform(0, 10), sets.uniform(0, 40)});
            const double belowMm = sets.uniform(0, 4);
            int first = -1, second = -1;
            double least = belowMm;
            for (int i = 0; i < count; ++i) {
                for (int j = i + 1; j < count; ++j) {
                    const MatchingPoint &p = points[static_cast<std::size_t>(i)];
                    const MatchingPoint &q = points[static_cast<std::size_t>(j)];
                    const double distance = std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
                    if (distance < least) {
                        least = distance;
                        first = i;
                        second = j;
                    }
                }
            }
            const std::optional<ClosestPair> pair = ClosestPair::of(points, belowMm);
            QCOMPARE(pair.has_value(), first >= 0);
            if (!pair)
                continue;
            ++found;
            QCOMPARE(pair->first, first);
            QCOMPARE(pair->second, second);
            QCOMPARE(pair->distanceMm, least);
        }
        QVERIFY(found > 100);
    }

    void shouldFindAPairWhereverItLies()
    {
        // Far apart along x, so that y divides them.
        const MatchingPoints others = {{0, 0, 0}, {1000, 90, 0}};
        for (double y = 10.0; y < 20.0; y += 0.25) {
            MatchingPoints points = others;
            points.push_back({500, y, 0});
            points.push_back({500.25, y - 0.5, 0.25});
            const std::optional<ClosestPair> pair = ClosestPair::of(points, 1.0);
            QVERIFY(pair.has_value());
            QCOMPARE(pair->first, 2);
            QCOMPARE(pair->second, 3);
            std::swap(points[2], points[3]);
            QVERIFY(ClosestPair::of(points, 1.0));
        }
    }

    /// Between the strips that hold the points and the first one lies one that holds none.
    void shouldFindAPairBehindAnEmptyStrip()
    {
        const MatchingPoints points = {{0, 0, 40}, {0, 5.9, 10}, {0, 6.1, 10.2}, {0, 9, 0}};
        const std::optional<ClosestPair> pair = ClosestPair::of(points, 1.0);
        QVERIFY(pair.has_value());
        QCOMPARE(pair->first, 1);
        QCOMPARE(pair->second, 2);
    }

    void shouldFindEqualPointsAndNothingAtTheLimit()
    {
        const MatchingPoints points = {{1, 2, 3}, {4, 2, 3}, {1, 2, 3}};
        QCOMPARE(ClosestPair::of(points, 1.0)->distanceMm, 0.0);
        QVERIFY(!ClosestPair::of(points, 0.0));
        QCOMPARE(ClosestPair::of(MatchingPoints(5000), 1.0)->distanceMm, 0.0);
        QVERIFY(!ClosestPair::of({points[0], points[1]}, 3.0));
        QVERIFY(ClosestPair::of({points[0], points[1]}, 3.1));
        const MatchingPoints acrossAxes = {{0, 0, 0}, {3, 4, 0}};
        QVERIFY(!ClosestPair::of(acrossAxes, 5.0));
        QVERIFY(ClosestPair::of(acrossAxes, 5.1));
    }

    void shouldKeepTheFirstOfTwoPairsThatAreAsClose()
    {
        const MatchingPoints points = {{0, 0, 0}, {3, 4, 0}, {100, 0, 0}, {103, 4, 0}};
        const std::optional<ClosestPair> pair = ClosestPair::of(points, 6.0);
        QVERIFY(pair.has_value());
        QCOMPARE(pair->first, 0);
        QCOMPARE(pair->second, 1);
    }
};

ROOM_TEST_CLASS(ClosestPairTest)

#include "ClosestPairTest.moc"
