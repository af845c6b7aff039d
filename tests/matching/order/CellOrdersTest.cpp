#include "CellOrders.h"

#include "PointSets.h"
#include "TestRegistry.h"
#include "TwinOrders.h"

#include <QtTest>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>

namespace
{

using Outcome = CellOrders::Outcome;

MatchingPoints line(PointSets &sets, int count, int different)
{
    MatchingPoints points;
    for (int i = 0; i < count; ++i)
        points.push_back({static_cast<double>(different == 0 ? i : sets.integer(1, different)), 0, 0});
    return points;
}

/// Equal points have equal rests.
std::vector<double> rests(PointSets &sets, const TwinPoints &references, const TwinPoints &measured,
                          int count)
{
    std::vector<double> ofGroups(static_cast<std::size_t>(count * count));
    for (double &rest : ofGroups)
        rest = sets.integer(0, 2) == 0 ? 0.0 : sets.uniform(0, 10);
    std::vector<double> result;
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j)
            result.push_back(
                ofGroups[static_cast<std::size_t>(references.group(i) * count + measured.group(j))]);
    }
    return result;
}

/// All orders of different points.
struct AnyOrder {
    AnyOrder(PointSets &sets, int count)
        : references(line(sets, count, 0))
        , measured(references)
    {
        const std::vector<double> rests(static_cast<std::size_t>(count * count), 0.0);
        isPrepared = orders.prepare(AllowedPairs(count), rests, 1.0, rests.size());
    }

    TwinPoints references, measured;
    CellOrders orders{references, measured};
    bool isPrepared = false;
};

bool anything(const PointOrder &)
{
    return true;
}

} // namespace

class CellOrdersTest : public QObject
{
    Q_OBJECT

private slots:
    /// Rounding lets the rests of equal reference points differ: the smallest one decides.
    void shouldTakeTheSmallestRestOfEqualReferences()
    {
        // GIVEN
        const TwinPoints references(MatchingPoints(2, {5, 0, 0}));
        const TwinPoints measured(MatchingPoints{{1, 0, 0}, {2, 0, 0}});
        CellOrders orders(references, measured);
        const double rounded = 0.75 + 1e-12;
        int visits = 0;
        // WHEN
        QVERIFY(orders.prepare(AllowedPairs(2), {rounded, 0.25, 0.75, 0.25}, 1.0, 4));
        const Outcome outcome = orders.forEach(100, [&visits](const PointOrder &) { return ++visits > 0; });
        // THEN
        QVERIFY(outcome == Outcome::Complete);
        QCOMPARE(visits, 1);
    }

    void shouldVisitWhatIsWithinTheGapOncePerExchange_data()
    {
        QTest::addColumn<int>("references");
        QTest::addColumn<int>("measured");
        QTest::newRow("all different") << 0 << 0;
        QTest::newRow("equal references") << 3 << 0;
        QTest::newRow("equal measured points") << 0 << 3;
        QTest::newRow("both") << 2 << 3;
    }

    void shouldVisitWhatIsWithinTheGapOncePerExchange()
    {
        QFETCH(int, references);
        QFETCH(int, measured);
        PointSets sets(521);
        std::size_t most = 0;
        for (int trial = 0; trial < 200; ++trial) {
            const int count = sets.integer(3, 6);
            const TwinPoints referenceTwins(line(sets, count, references)),
                measuredTwins(line(sets, count, measured));
            const TwinOrders exchanges(referenceTwins, measuredTwins);
            const std::vector<double> matrix = rests(sets, referenceTwins, measuredTwins, count);
            const double gap = sets.uniform(0, 30);
            std::set<PointOrder> expected;
            PointOrder order(static_cast<std::size_t>(count));
            std::iota(order.begin(), order.end(), 0);
            do {
                double sum = 0.0;
                for (std::size_t i = 0; i < order.size(); ++i)
                    sum += matrix[i * order.size() + static_cast<std::size_t>(order[i])];
                if (sum <= gap)
                    expected.insert(exchanges.first(order));
            } while (std::next_permutation(order.begin(), order.end()));
            std::set<PointOrder> visited;
            std::size_t visits = 0;
            CellOrders orders(referenceTwins, measuredTwins);
            QVERIFY(orders.prepare(AllowedPairs(count), matrix, gap, matrix.size()));
            const Outcome outcome = orders.forEach(1000000, [&](const PointOrder &found) {
                ++visits;
                visited.insert(exchanges.first(found));
                return true;
            });
            QVERIFY(outcome == Outcome::Complete);
            QVERIFY(visited == expected);
            QCOMPARE(visits, expected.size());
            most = std::max(most, visits);
        }
        QVERIFY(most > 2);
    }

    /// More of them than a sort keeps in order by itself.
    void shouldLeaveEqualMeasuredPointsInTheirOrder()
    {
        // GIVEN
        const int count = 40, different = 4;
        PointSets sets(522);
        MatchingPoints points;
        for (int j = 0; j < count; ++j)
            points.push_back({static_cast<double>(j % different), 0, 0});
        const TwinPoints references(line(sets, count, 0)), measured(points);
        CellOrders orders(references, measured);
        const std::vector<double> free(static_cast<std::size_t>(count * count), 0.0);
        QVERIFY(orders.prepare(AllowedPairs(count), free, 1.0, free.size()));
        // WHEN
        PointOrder first;
        const Outcome outcome = orders.forEach(1000000, [&first](const PointOrder &found) {
            first = found;
            return false;
        });
        // THEN
        QVERIFY(outcome == Outcome::Ended);
        for (int group = 0; group < different; ++group) {
            PointOrder ofGroup;
            std::copy_if(first.begin(), first.end(), std::back_inserter(ofGroup),
                         [group](int j) { return j % different == group; });
            QCOMPARE(int(ofGroup.size()), count / different);
            QVERIFY(std::is_sorted(ofGroup.begin(), ofGroup.end()));
        }
    }

    /// They differ by rounding only, of which none may take an order away.
    void shouldTakeTheLesserOfTheRestsOfEqualPoints()
    {
        const TwinPoints references(MatchingPoints(2, MatchingPoint{1, 1, 1})),
            measured({{1, 0, 0}, {2, 0, 0}});
        for (const double rounding : {1e-9, -1e-9}) {
            CellOrders orders(references, measured);
            const std::vector<double> rests = {0.5 + rounding, 0.5 - rounding, 0.5 - rounding,
                                               0.5 + rounding};
            QVERIFY(orders.prepare(AllowedPairs(2), rests, 1.0, 2));
            int visits = 0;
            QVERIFY(orders.forEach(100, [&visits](const PointOrder &) { return ++visits > 0; }) ==
                    Outcome::Complete);
            QCOMPARE(visits, 1);
        }
    }

    /// Of three points each may be the first, then one of two, then the last: 3 + 6 + 6 pairs are tried.
    void shouldCountEveryPairThatIsTriedAsAStep()
    {
        PointSets sets(523);
        AnyOrder any(sets, 3);
        QVERIFY(any.isPrepared);
        QVERIFY(any.orders.forEach(14, anything) == Outcome::TooMany);
        QVERIFY(any.orders.forEach(15, anything) == Outcome::Complete);
        QVERIFY(any.orders.forEach(14, {}, anything) == Outcome::TooMany);
        QVERIFY(any.orders.forEach(15, {}, anything) == Outcome::Complete);
        QVERIFY(any.orders.forEach(OrderVisitor::GoOn(), anything) == Outcome::Complete);
    }

    /// Of seven points there are 7 + 42 + 210 + 840 + 2520 + 5040 + 5040 = 13699 pairs to try.
    void shouldAskEveryThousandSteps()
    {
        PointSets sets(524);
        AnyOrder any(sets, 7);
        QVERIFY(any.isPrepared);
        int questions = 0;
        const auto goOn = [&questions]() { return ++questions > 0; };
        QVERIFY(any.orders.forEach(goOn, anything) == Outcome::Complete);
        QCOMPARE(questions, 13);
        questions = 0;
        QVERIFY(any.orders.forEach(14000, goOn, anything) == Outcome::Complete);
        QCOMPARE(questions, 13);
        questions = 0;
        QVERIFY(any.orders.forEach(3500, goOn, anything) == Outcome::TooMany);
        QCOMPARE(questions, 3);
        QVERIFY(any.orders.forEach(3500, anything) == Outcome::TooMany);
        QCOMPARE(questions, 3);
    }

    void shouldEndWhenToldSoOrAfterTooManySteps()
    {
        PointSets sets(522);
        const TwinPoints references(line(sets, 8, 0)), measured(line(sets, 8, 0));
        CellOrders orders(references, measured);
        const std::vector<double> matrix(64, 0.0);
        QVERIFY(!orders.prepare(AllowedPairs(8), matrix, 1.0, 63));
        QVERIFY(orders.prepare(AllowedPairs(8), matrix, 1.0, 64));
        int visits = 0;
        const auto count = [&visits](const PointOrder &) { return ++visits < 100; };
        QVERIFY(orders.forEach(1000000, count) == Outcome::Ended);
        QCOMPARE(visits, 100);
        QVERIFY(orders.forEach(50, [](const PointOrder &) { return true; }) == Outcome::TooMany);
        int questions = 0;
        QVERIFY(orders.forEach([&questions]() { return ++questions < 20; },
                               [](const PointOrder &) { return true; }) == Outcome::TooMany);
        QCOMPARE(questions, 20);
    }
};

ROOM_TEST_CLASS(CellOrdersTest)

#include "CellOrdersTest.moc"
