#include "RotationSearch.h"

#include "AllOrders.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace
{

/// A search over both lists of a case.
struct Prepared {
    explicit Prepared(const MatchingCase &lists)
        : referenceTwins(lists.references, 3)
        , measuredTwins(lists.measured)
        , search(lists.references, lists.measured, referenceTwins, measuredTwins)
    {
    }

    TwinPoints referenceTwins;
    TwinPoints measuredTwins;
    RotationSearch search;
};

} // namespace

class RotationSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldVisitEveryOrderWithinTheLimit_data()
    {
        QTest::addColumn<double>("sigmaMm");
        QTest::addColumn<double>("limitMm");
        QTest::newRow("only what fits") << 1.0 << 5.0;
        QTest::newRow("noise") << 50.0 << 120.0;
    }
    void shouldVisitEveryOrderWithinTheLimit()
    {
        // GIVEN
        QFETCH(double, sigmaMm);
        QFETCH(double, limitMm);
        PointSets sets(81);
        std::size_t most = 0;
        for (int trial = 0; trial < 5; ++trial) {
            const MatchingCase lists(sets, 6, sigmaMm);
            Prepared prepared(lists);
            VisitedOrders visited(limitMm);
            // WHEN
            QVERIFY(prepared.search.walk(visited, {}));
            // THEN
            const std::set<PointOrder> expected = ordersWithin(lists, limitMm);
            QVERIFY(containsAll(visited.orders, expected));
            // Many cells hold the same order.
            QVERIFY(visited.visits <= 2 * visited.orders.size());
            most = std::max(most, expected.size());
        }
        QVERIFY(most > 0);
    }

    void shouldBeLedToTheOrderThatFits()
    {
        // GIVEN
        PointSets sets(82);
        for (int trial = 0; trial < 20; ++trial) {
            const MatchingCase lists(sets, 6, 0.01);
            Prepared prepared(lists);
            VisitedOrders visited(std::numeric_limits<double>::infinity());
            // WHEN
            QVERIFY(prepared.search.visitLikely(visited, {}));
            // THEN
            QVERIFY(containsAll(visited.orders, ordersWithin(lists, 0.1)));
            QVERIFY(prepared.search.leastLikelyRmsMm() < 0.1);
        }
    }

    void shouldTellTheLeastOfTheResidualsThatItWasLedTo()
    {
        // GIVEN
        PointSets sets(86);
        for (int trial = 0; trial < 20; ++trial) {
            const MatchingCase lists(sets, 6, 20.0);
            Prepared prepared(lists);
            VisitedOrders visited(std::numeric_limits<double>::infinity());
            // WHEN
            QVERIFY(prepared.search.visitLikely(visited, {}));
            // THEN
            OrderFit fit(lists.references, lists.measured);
            double least = std::numeric_limits<double>::infinity();
            for (const PointOrder &order : visited.orders) {
                const OrderFit::Result result = fit.fit(order);
                least = std::min(least, result.isValid() ? result.rmsMm : least);
            }
            QVERIFY(std::fabs(prepared.search.leastLikelyRmsMm() / least - 1.0) < 1e-3);
        }
    }

    void shouldVisitTheSameOrdersAgain()
    {
        // GIVEN
        PointSets sets(87);
        const MatchingCase lists(sets, 6, 50.0);
        Prepared prepared(lists);
        VisitedOrders first(120.0), second(120.0);
        QVERIFY(prepared.search.walk(first, {}));
        // WHEN
        QVERIFY(prepared.search.walk(second, {}));
        // THEN
        QVERIFY(!first.orders.empty());
        QVERIFY(second.orders == first.orders);
        QCOMPARE(second.visits, first.visits);
    }

    void shouldEndWhenTheVisitorOrTheAskerSaysSo()
    {
        // GIVEN
        PointSets sets(83);
        const MatchingCase lists(sets, 6, 50.0);
        Prepared prepared(lists);
        VisitedOrders one(std::numeric_limits<double>::infinity(), 1);
        VisitedOrders none(200.0);
        // WHEN, THEN
        QVERIFY(!prepared.search.visitLikely(one, {}));
        QCOMPARE(one.visits, std::size_t(1));
        QVERIFY(!prepared.search.walk(none, [] { return false; }));
    }

    /// Also when the asker would go on the next time.
    void shouldEndAtWhicheverQuestionTheAskerSaysNo()
    {
        // GIVEN
        PointSets sets(88);
        const MatchingCase lists(sets, 30, 20.0);
        int ended = 0;
        for (int last = 0; last < 16; ++last) {
            Prepared prepared(lists);
            VisitedOrders visited(std::numeric_limits<double>::infinity());
            int questions = 0;
            const OrderVisitor::GoOn goOn = [&] { return questions++ != last; };
            // WHEN
            const bool complete = prepared.search.visitLikely(visited, goOn);
            // THEN
            QCOMPARE(complete, questions <= last);
            ended += complete ? 0 : 1;
        }
        // Eleven while 256 cells of 900 pairs are weighed, and more where that leads.
        QVERIFY2(ended > 11 && ended < 16, qPrintable(QString::number(ended)));
    }

    void shouldBeginAnewAfterItWasEnded()
    {
        // GIVEN
        PointSets sets(85);
        const MatchingCase lists(sets, 20, 1.0);
        Prepared prepared(lists);
        VisitedOrders ended(2.0), visited(2.0);
        QVERIFY(!prepared.search.walk(ended, [] { return false; }));
        // WHEN
        QVERIFY(prepared.search.walk(visited, {}));
        // THEN
        QVERIFY(!visited.orders.empty());
    }

    void shouldBoundTheBestResidualFromAbove()
    {
        // GIVEN
        PointSets sets(84);
        MatchingCase lists(sets, 5, 0.0);
        lists.measured = asPoints(sets.box(5, 300.0)); // nothing fits
        // WHEN
        const double largest = Prepared(lists).search.largestRmsMm();
        // THEN
        QVERIFY(std::isfinite(largest));
        QVERIFY(!ordersWithin(lists, largest).empty());
    }
};

ROOM_TEST_CLASS(RotationSearchTest)
#include "RotationSearchTest.moc"
