#include "AssignmentTree.h"

#include "AllOrders.h"
#include "TestRegistry.h"
#include "TwinOrders.h"

#include <QtTest>

#include <cmath>

namespace
{

/// A tree over both lists of a case.
struct Planted {
    explicit Planted(const MatchingCase &lists)
        : fit(lists.references, lists.measured)
        , referenceTwins(lists.references, 3)
        , measuredTwins(lists.measured)
    {
    }

    OrderFit fit;
    TwinPoints referenceTwins;
    TwinPoints measuredTwins;
    AssignmentTree tree{fit, referenceTwins, measuredTwins};
};

} // namespace

class AssignmentTreeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldVisitEveryOrderWithinTheLimit_data()
    {
        QTest::addColumn<double>("limitMm");
        QTest::newRow("only what fits") << 3.0;
        QTest::newRow("some") << 150.0;
        QTest::newRow("everything") << 1e6;
    }
    void shouldVisitEveryOrderWithinTheLimit()
    {
        // GIVEN
        QFETCH(double, limitMm);
        PointSets sets(71);
        for (int trial = 0; trial < 10; ++trial) {
            const MatchingCase lists(sets, 6, 1.0);
            Planted planted(lists);
            VisitedOrders visited(limitMm);
            // WHEN
            QVERIFY(planted.tree.walk(visited, {}));
            // THEN
            const std::set<PointOrder> expected = ordersWithin(lists, limitMm);
            QVERIFY(!expected.empty());
            QVERIFY(containsAll(visited.orders, expected));
            QCOMPARE(visited.visits, visited.orders.size());
        }
    }

    void shouldLeaveOutWhatCannotFit()
    {
        // GIVEN
        PointSets sets(72);
        const MatchingCase lists(sets, 7, 0.1);
        Planted planted(lists);
        VisitedOrders visited(1.0);
        // WHEN
        QVERIFY(planted.tree.walk(visited, {}));
        // THEN
        QVERIFY(visited.orders.size() < 20); // of 5040
    }

    void shouldVisitOneOfThoseThatExchangeEqualPoints()
    {
        // GIVEN
        PointSets sets(73);
        MatchingCase lists(sets, 5, 0.0);
        lists.references[4] = lists.references[3];
        lists.measured = lists.references;
        Planted planted(lists);
        VisitedOrders visited(1e-3);
        // WHEN
        QVERIFY(planted.tree.walk(visited, {}));
        // THEN
        QCOMPARE(visited.visits, std::size_t(1));
        QCOMPARE(ordersWithin(lists, 1e-3).size(), std::size_t(2));
    }

    void shouldVisitWhatOnlyExchangesEqualPointsOnce_data()
    {
        QTest::addColumn<int>("equalReferences");
        QTest::addColumn<int>("equalMeasured");
        QTest::newRow("references") << 3 << 1;
        QTest::newRow("measured points") << 1 << 3;
        QTest::newRow("both") << 2 << 2;
        QTest::newRow("many of both") << 3 << 4;
    }
    void shouldVisitWhatOnlyExchangesEqualPointsOnce()
    {
        // GIVEN
        QFETCH(int, equalReferences);
        QFETCH(int, equalMeasured);
        PointSets sets(76);
        MatchingCase lists(sets, 6, 1.0);
        std::fill_n(lists.references.rbegin(), equalReferences, lists.references.back());
        std::fill_n(lists.measured.begin() + 1, equalMeasured, lists.measured[1]);
        Planted planted(lists);
        const TwinOrders exchanges(planted.referenceTwins, planted.measuredTwins);
        VisitedOrders visited(1e6);
        // WHEN
        QVERIFY(planted.tree.walk(visited, {}));
        // THEN
        std::set<PointOrder> expected, found;
        PointOrder order = {0, 1, 2, 3, 4, 5};
        do {
            if (planted.fit.canStart(order))
                expected.insert(exchanges.first(order));
        } while (std::next_permutation(order.begin(), order.end()));
        for (const PointOrder &one : visited.orders)
            found.insert(exchanges.first(one));
        QVERIFY(found == expected);
        QCOMPARE(visited.visits, expected.size());
    }

    /// Of seven points, 8659 branches are tried, of 14 units each and 4 for the estimate, 27391 pairs bounded
    /// and 5040 orders visited, of 84 units each: 606613 units, of which a question ends every 20000.
    void shouldAskAsOftenAsItsWorkSays()
    {
        // GIVEN
        PointSets sets(77);
        const MatchingCase lists(sets, 7, 1.0);
        Planted planted(lists);
        VisitedOrders everything(1e6);
        int questions = 0;
        // WHEN
        QVERIFY(planted.tree.walk(everything, [&questions] { return ++questions > 0; }));
        // THEN
        QCOMPARE(everything.visits, std::size_t(5040));
        QCOMPARE(questions, 30);
    }

    void shouldEndWhenTheVisitorOrTheAskerSaysSo()
    {
        // GIVEN
        PointSets sets(74);
        const MatchingCase lists(sets, 7, 0.0);
        Planted planted(lists);
        VisitedOrders three(1e6, 3);
        VisitedOrders none(1e6);
        // WHEN, THEN
        QVERIFY(!planted.tree.walk(three, {}));
        QCOMPARE(three.visits, std::size_t(3));
        QVERIFY(!planted.tree.walk(none, [] { return false; }));
        QVERIFY(none.visits < 5040);
        QVERIFY(!planted.tree.isFull());
    }

    /// Every first pair leaves all the others to the next level, which is room for 250 times 250 partners,
    /// and is then found to fit nowhere. Taken anew each time, that room would be more than there is.
    void shouldUseTheRoomOfALevelAgain()
    {
        // GIVEN: opposite points of a sphere, so that all are as far from the centre
        PointSets sets(78);
        const auto onSphere = [&sets] {
            MatchingPoints points;
            while (points.size() < 250) {
                const MatchingPoint p = {sets.noise(1.0), sets.noise(1.0), sets.noise(1.0)};
                const double part = 1000.0 / std::hypot(p[0], p[1], p[2]);
                points.push_back({part * p[0], part * p[1], part * p[2]});
                points.push_back({-part * p[0], -part * p[1], -part * p[2]});
            }
            return points;
        };
        MatchingCase lists(sets, 3, 0.0);
        lists.references = onSphere();
        lists.measured = onSphere();
        Planted planted(lists);
        VisitedOrders visited(1e-3);
        // WHEN, THEN
        QVERIFY(planted.tree.walk(visited, {}));
        QVERIFY(!planted.tree.isFull());
        QCOMPARE(visited.visits, std::size_t(0));
    }

    void shouldBoundTheResidualsFromBothSides()
    {
        // GIVEN
        PointSets sets(75);
        MatchingCase lists(sets, 5, 0.0);
        lists.measured = asPoints(sets.box(5, 300.0)); // nothing fits
        const Planted planted(lists);
        // WHEN
        const double least = planted.tree.leastRmsMm();
        const double largest = planted.tree.largestRmsMm();
        // THEN
        QVERIFY(least > 0.0);
        QVERIFY(ordersWithin(lists, least * (1.0 - 1e-9)).empty());
        QVERIFY(!ordersWithin(lists, largest).empty());
    }
};

ROOM_TEST_CLASS(AssignmentTreeTest)
#include "AssignmentTreeTest.moc"
