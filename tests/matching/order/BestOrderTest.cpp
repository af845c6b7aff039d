#include "BestOrder.h"

#include "AllOrders.h"
#include "PlainLoop.h"
#include "TestRegistry.h"

#include <QtTest>

#include <limits>

namespace
{

/// What is kept of both lists' orders.
struct Judge {
    explicit Judge(const MatchingCase &lists)
        : fit(lists.references, lists.measured)
        , referenceTwins(lists.references, 3)
        , measuredTwins(lists.measured)
    {
    }

    OrderFit fit;
    TwinPoints referenceTwins;
    TwinPoints measuredTwins;
    BestOrder best{fit, referenceTwins, measuredTwins};
};

} // namespace

class BestOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKeepNothingAtFirst()
    {
        // GIVEN
        PointSets sets(91);
        Judge judge(MatchingCase(sets, 5, 1.0));
        // THEN
        QVERIFY(judge.best.kept().isEmpty());
        QCOMPARE(judge.best.limitMm(), std::numeric_limits<double>::infinity());
        judge.best.setLimit(2.5);
        QCOMPARE(judge.best.limitMm(), 2.5);
    }

    void shouldKeepWhatTheLoopKeeps_data()
    {
        QTest::addColumn<bool>("twins");
        QTest::newRow("all different") << false;
        QTest::newRow("equal points in both lists") << true;
    }
    void shouldKeepWhatTheLoopKeeps()
    {
        // GIVEN
        QFETCH(bool, twins);
        PointSets sets(92);
        for (int trial = 0; trial < 20; ++trial) {
            MatchingCase lists(sets, 5, 10.0);
            if (twins) {
                lists.references[4] = lists.references[3];
                lists.measured[1] = lists.measured[0];
            }
            Judge judge(lists);
            // WHEN
            for (const PointOrder &order : ordersWithin(lists, 1e6))
                QVERIFY(judge.best.visit(order));
            // THEN
            const PlainLoop loop(lists.references, lists.measured);
            QCOMPARE(judge.best.kept().order(), loop.order);
            QCOMPARE(judge.best.kept().best(), loop.best);
        }
    }

    void shouldKeepWhatTheLoopKeepsWhereRoundingDecides()
    {
        // GIVEN
        PointSets sets(94);
        for (int trial = 0; trial < 10; ++trial) {
            std::vector<double> values = sets.box(6, 500.0);
            std::copy_n(values.begin() + 9, 3,
                        values.begin() + 12 + 3 * (trial % 2)); // twins behind the third
            MatchingCase lists(sets, 6, 0.0);
            lists.references = asPoints(values);
            lists.measured = asPoints(sets.shuffled(sets.moved(values, 0.0))); // fits but for rounding
            Judge judge(lists);
            // WHEN
            for (const PointOrder &order : ordersWithin(lists, 1e6))
                QVERIFY(judge.best.visit(order));
            // THEN
            const PlainLoop loop(lists.references, lists.measured);
            QVERIFY(loop.found);
            QCOMPARE(judge.best.kept().order(), loop.order);
            QCOMPARE(judge.best.kept().best(), loop.best);
        }
    }

    void shouldLowerItsLimitWithEveryBetterOrder()
    {
        // GIVEN
        PointSets sets(93);
        const MatchingCase lists(sets, 5, 0.1);
        Judge judge(lists);
        const std::set<PointOrder> all = ordersWithin(lists, 1e6);
        const PointOrder right = *ordersWithin(lists, 1.0).begin();
        const PointOrder wrong = *all.begin() == right ? *all.rbegin() : *all.begin();
        // WHEN
        judge.best.visit(wrong);
        const double before = judge.best.limitMm();
        judge.best.visit(right);
        // THEN
        QVERIFY(before > 1.0);
        QVERIFY(judge.best.limitMm() < 1.0);
        judge.best.visit(wrong);
        QCOMPARE(judge.best.kept().order(), right);
    }
};

ROOM_TEST_CLASS(BestOrderTest)
#include "BestOrderTest.moc"
