#include "CellOrders.h"

#include "PointSets.h"
#include "TestRegistry.h"
#include "TwinOrders.h"

#include <QtTest>

#include <algorithm>
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

} // namespace

class CellOrdersTest : public QObject
{
    Q_OBJECT

private slots:
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
