#include "OrderFit.h"

#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

namespace
{

const MatchingPoints corner = {{0, 0, 0}, {100, 0, 0}, {0, 50, 0}, {0, 0, 20}};

/// The corner moved by (1, 2, 3), with the last two points exchanged.
const MatchingPoints movedCorner = {{1, 2, 3}, {101, 2, 3}, {1, 2, 23}, {1, 52, 3}};

MatchingPoints onALine(int count)
{
    MatchingPoints points;
    for (int i = 0; i < count; ++i)
        points.push_back({static_cast<double>(i), 0.0, 0.0});
    return points;
}

} // namespace

class OrderFitTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFitThePointsInTheirOrder()
    {
        // GIVEN
        OrderFit fit(corner, movedCorner);
        // WHEN
        const OrderFit::Result right = fit.fit({0, 1, 3, 2});
        const OrderFit::Result wrong = fit.fit({0, 1, 2, 3});
        // THEN
        QVERIFY(right.isValid());
        QVERIFY(right.rmsMm < 1e-9);
        QVERIFY(std::fabs(right.transform[3] + 1.0) < 1e-9);
        QVERIFY(std::fabs(right.transform[7] + 2.0) < 1e-9);
        QVERIFY(std::fabs(right.transform[11] + 3.0) < 1e-9);
        QVERIFY(!wrong.isValid() || wrong.rmsMm > 1.0);
    }

    void shouldTellWhyThereIsNoFit()
    {
        // GIVEN
        OrderFit fit(onALine(3), onALine(3));
        // WHEN
        const OrderFit::Result result = fit.fit({0, 1, 2});
        // THEN
        QVERIFY(!result.isValid());
        QCOMPARE(result.startCode, -1);
        QCOMPARE(result.refineCode, 0);
    }

    void shouldLookAtTheFirstThreePairsForAStart()
    {
        // GIVEN
        const MatchingPoints measured = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}};
        const OrderFit fit(corner, measured);
        // WHEN, THEN
        QVERIFY(!fit.canStart({0, 1, 2, 3}));
        QVERIFY(fit.canStart({0, 1, 3, 2}));
        QVERIFY(!OrderFit(onALine(4), corner).canStart({0, 1, 2, 3}));
    }

    void shouldSayWhetherAnyOrderCanStart()
    {
        // GIVEN
        const OrderFit possible(corner, movedCorner);
        const OrderFit withoutTriple(corner, onALine(4));
        const OrderFit withoutReferences(onALine(4), corner);
        // WHEN, THEN
        QVERIFY(possible.referencesAllowStart());
        QVERIFY(withoutTriple.referencesAllowStart());
        QVERIFY(!withoutReferences.referencesAllowStart());
        QVERIFY(possible.anyStart({}) == OrderFit::Start::Possible);
        QVERIFY(withoutTriple.anyStart({}) == OrderFit::Start::Impossible);
        QVERIFY(withoutReferences.anyStart({}) == OrderFit::Start::Impossible);
    }

    void shouldAskBeforeItLooksAtManyTriples()
    {
        // GIVEN
        MatchingPoints references = corner;
        references.resize(50);
        const OrderFit fit(references, onALine(50));
        int questions = 0;
        // WHEN
        const OrderFit::Start start = fit.anyStart([&questions] { return ++questions < 2; });
        // THEN
        QVERIFY(start == OrderFit::Start::Cancelled);
        QCOMPARE(questions, 2);
    }

    /// 200 triples are looked at together, so that 20200 lie between two questions.
    void shouldAskAfterAsManyTriplesEachTime()
    {
        // GIVEN
        MatchingPoints references = corner;
        references.resize(200);
        const OrderFit fit(references, onALine(200));
        int questions = 0;
        // WHEN
        const OrderFit::Start start = fit.anyStart([&questions] { return ++questions > 0; });
        // THEN
        QVERIFY(start == OrderFit::Start::Impossible);
        QCOMPARE(questions, 200 * 200 * 200 / 20200);
    }

    void shouldFindTheOnlyTripleThatAllowsAStart()
    {
        // GIVEN
        MatchingPoints references = corner;
        references.resize(30);
        for (std::size_t place = 0; place < references.size(); ++place) {
            MatchingPoints measured(30, MatchingPoint{7, 8, 9});
            measured[place] = {7, 8, 1};
            QVERIFY(OrderFit(references, measured).anyStart({}) == OrderFit::Start::Impossible);
            measured[(place + 17) % 30] = {7, 5, 9};
            // WHEN, THEN
            QVERIFY(OrderFit(references, measured).anyStart({}) == OrderFit::Start::Possible);
        }
    }
};

ROOM_TEST_CLASS(OrderFitTest)
#include "OrderFitTest.moc"
