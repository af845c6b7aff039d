#include "AllowedPairs.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <vector>

namespace
{

struct Pair {
    int row;
    int column;
};

bool operator==(const Pair &left, const Pair &right)
{
    return left.row == right.row && left.column == right.column;
}

std::vector<Pair> listOf(const AllowedPairs &pairs)
{
    std::vector<Pair> list;
    for (int row = 0; row < pairs.count(); ++row) {
        for (std::size_t pair = pairs.firstOf(row); pair < pairs.firstOf(row + 1); ++pair)
            list.push_back({row, pairs.columns()[pair]});
    }
    return list;
}

} // namespace

class AllowedPairsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginWithAllPairsRowByRow()
    {
        const AllowedPairs pairs(2);
        QCOMPARE(pairs.size(), std::size_t{4});
        QVERIFY((listOf(pairs) == std::vector<Pair>{{0, 0}, {0, 1}, {1, 0}, {1, 1}}));
    }

    void shouldTellWhetherAllAreAllowed()
    {
        AllowedPairs pairs(2);
        QVERIFY(pairs.areAll());
        QVERIFY(pairs.narrow({0, 9, 9, 0}, 1.0));
        QVERIFY(!pairs.areAll());
        pairs.widen();
        QVERIFY(pairs.areAll());
    }

    void shouldLeaveThePairsBelowTheLargestValue()
    {
        AllowedPairs pairs(3);
        QVERIFY(pairs.narrow({1, 5, 2, 9, 9, 9, 3, 2, 1}, 2.0));
        QVERIFY((listOf(pairs) == std::vector<Pair>{{0, 0}, {0, 2}, {2, 1}, {2, 2}}));
        // Of those, by their new numbers.
        QVERIFY(pairs.narrow({0, 7, 7, 0}, 1.0));
        QVERIFY((listOf(pairs) == std::vector<Pair>{{0, 0}, {2, 2}}));
        pairs.widen();
        QCOMPARE(pairs.size(), std::size_t{4});
        pairs.widen();
        QCOMPARE(pairs.size(), std::size_t{9});
    }

    void shouldStayAsItIsWhenLessThanAQuarterWouldGo()
    {
        AllowedPairs pairs(4);
        std::vector<double> values(16, 0.0);
        values[0] = values[5] = values[10] = 9.0;
        QVERIFY(!pairs.narrow(values, 1.0));
        QCOMPARE(pairs.size(), std::size_t{16});
        values[15] = 9.0;
        QVERIFY(pairs.narrow(values, 1.0));
        QCOMPARE(pairs.size(), std::size_t{12});
    }

    void shouldComeBackToEveryChoiceBefore()
    {
        PointSets sets(531);
        AllowedPairs pairs(20);
        std::vector<std::vector<Pair>> choices;
        while (pairs.size() > 3) {
            choices.push_back(listOf(pairs));
            std::vector<double> values(pairs.size());
            for (double &value : values)
                value = sets.uniform(0, 1);
            QVERIFY(pairs.narrow(values, 0.5));
        }
        QVERIFY(choices.size() > 4);
        while (!choices.empty()) {
            pairs.widen();
            QVERIFY(listOf(pairs) == choices.back());
            choices.pop_back();
        }
    }
};

ROOM_TEST_CLASS(AllowedPairsTest)

#include "AllowedPairsTest.moc"
