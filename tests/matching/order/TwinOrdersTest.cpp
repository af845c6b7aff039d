#include "TwinOrders.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <numeric>
#include <set>

namespace
{

MatchingPoints fewDifferent(PointSets &sets, int count)
{
    MatchingPoints points;
    for (int i = 0; i < count; ++i)
        points.push_back({static_cast<double>(sets.integer(0, 2)), 0, 0});
    return points;
}

/// For each group of reference points, in which points may be exchanged, the sorted measured points.
using Content = std::multiset<std::pair<int, MatchingPoint>>;

Content contentOf(const PointOrder &order, const TwinPoints &references, const MatchingPoints &measured)
{
    Content content;
    for (std::size_t i = 0; i < order.size(); ++i)
        content.emplace(references.group(static_cast<int>(i)), measured[static_cast<std::size_t>(order[i])]);
    return content;
}

} // namespace

class TwinOrdersTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindTheOutermostOfAllThatExchangeEqualPoints()
    {
        PointSets sets(51);
        for (int trial = 0; trial < 300; ++trial) {
            const MatchingPoints references = fewDifferent(sets, 6), measured = fewDifferent(sets, 6);
            const TwinPoints referenceTwins(references, sets.integer(0, 3)), measuredTwins(measured);
            const TwinOrders orders(referenceTwins, measuredTwins);
            PointOrder order(6);
            std::iota(order.begin(), order.end(), 0);
            std::shuffle(order.begin(), order.end(), sets.generator());
            const Content content = contentOf(order, referenceTwins, measured);
            std::vector<PointOrder> same;
            std::set<MatchingPoints> different;
            PointOrder other = {0, 1, 2, 3, 4, 5};
            do {
                if (contentOf(other, referenceTwins, measured) != content)
                    continue;
                same.push_back(other);
                MatchingPoints arranged;
                for (const int j : other)
                    arranged.push_back(measured[static_cast<std::size_t>(j)]);
                different.insert(arranged);
            } while (std::next_permutation(other.begin(), other.end()));
            QCOMPARE(orders.first(order), same.front());
            QCOMPARE(orders.last(order), same.back());
            std::set<MatchingPoints> visited;
            int calls = 0;
            orders.forEachExchange(order, 5000, [&](const PointOrder &exchanged) {
                ++calls;
                MatchingPoints arranged;
                for (const int j : exchanged)
                    arranged.push_back(measured[static_cast<std::size_t>(j)]);
                visited.insert(arranged);
            });
            QVERIFY(visited == different);
            QCOMPARE(static_cast<std::size_t>(calls), different.size());
        }
    }

    void shouldStopAtTheLargestNumberOfExchanges()
    {
        const MatchingPoints references(9, MatchingPoint{1, 1, 1});
        MatchingPoints measured;
        for (int i = 0; i < 9; ++i)
            measured.push_back({static_cast<double>(i), 0, 0});
        const TwinPoints referenceTwins(references), measuredTwins(measured);
        int calls = 0;
        TwinOrders(referenceTwins, measuredTwins)
            .forEachExchange({0, 1, 2, 3, 4, 5, 6, 7, 8}, 1000, [&calls](const PointOrder &) { ++calls; });
        QCOMPARE(calls, 1000);
    }
};

ROOM_TEST_CLASS(TwinOrdersTest)

#include "TwinOrdersTest.moc"
