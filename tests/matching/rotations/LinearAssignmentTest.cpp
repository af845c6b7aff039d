#include "LinearAssignment.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

using Costs = std::vector<double>;

constexpr double forbidden = std::numeric_limits<double>::infinity();

double costOf(const Costs &costs, const std::vector<int> &columns)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < columns.size(); ++i)
        sum += costs[i * columns.size() + static_cast<std::size_t>(columns[i])];
    return sum;
}

/// The least cost of all complete assignments, one after the other.
double leastCost(const Costs &costs, int count)
{
    std::vector<int> columns(static_cast<std::size_t>(count));
    std::iota(columns.begin(), columns.end(), 0);
    double least = forbidden;
    do {
        least = std::min(least, costOf(costs, columns));
    } while (std::next_permutation(columns.begin(), columns.end()));
    return least;
}

bool isComplete(std::vector<int> columns)
{
    std::sort(columns.begin(), columns.end());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i] != static_cast<int>(i))
            return false;
    }
    return !columns.empty();
}

/// The least of what the prices leave of all costs; below zero by more than rounding, they prove nothing.
double leastRest(const Costs &costs, const LinearAssignment &assignment)
{
    const std::size_t count = assignment.rowPrices().size();
    double least = forbidden;
    for (std::size_t i = 0; i < costs.size(); ++i)
        least = std::min(least,
                         costs[i] - assignment.rowPrices()[i / count] - assignment.columnPrices()[i % count]);
    return least;
}

Costs continuous(PointSets &sets, int count)
{
    Costs costs(static_cast<std::size_t>(count * count));
    for (double &cost : costs)
        cost = sets.uniform(-1000, 1000);
    return costs;
}

/// Few different numbers: most assignments are as good as many others.
Costs degenerate(PointSets &sets, int count)
{
    Costs costs(static_cast<std::size_t>(count * count));
    const int largest = sets.integer(0, 3);
    for (double &cost : costs)
        cost = sets.integer(0, largest);
    return costs;
}

Costs partlyForbidden(PointSets &sets, int count)
{
    Costs costs = sets.integer(0, 1) ? continuous(sets, count) : degenerate(sets, count);
    const double share = sets.uniform(0, 1);
    for (double &cost : costs)
        cost = sets.uniform(0, 1) < share ? forbidden : cost;
    return costs;
}

/// Rows and columns repeat.
Costs withTwins(PointSets &sets, int count)
{
    Costs costs = continuous(sets, count);
    for (std::size_t i = 0; i < costs.size(); ++i) {
        const auto size = static_cast<std::size_t>(count);
        costs[i] = costs[(i / size / 2 * 2) * size + i % size / 3 * 3];
    }
    return costs;
}

Costs huge(PointSets &sets, int count)
{
    Costs costs = continuous(sets, count);
    for (double &cost : costs)
        cost *= 1e200;
    return costs;
}

using Make = Costs (*)(PointSets &sets, int count);

} // namespace

Q_DECLARE_METATYPE(Make)

class LinearAssignmentTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindWhatTryingAllFinds_data();
    void shouldFindWhatTryingAllFinds();
    void shouldProveTheCostOfLargeAssignments_data();
    void shouldProveTheCostOfLargeAssignments();
    void shouldGiveUpAboveTheLimitAndOnlyThere();
    void shouldBeginWithAnyPrices();
    void shouldUseAllowedPairsOnly();
    void shouldEndWithinALargeSolutionWhenToldSo();
    void shouldAssignASingleRow();
};

void LinearAssignmentTest::shouldFindWhatTryingAllFinds_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("continuous") << Make(continuous);
    QTest::newRow("degenerate") << Make(degenerate);
    QTest::newRow("partly forbidden") << Make(partlyForbidden);
    QTest::newRow("twins") << Make(withTwins);
    QTest::newRow("huge") << Make(huge);
}

void LinearAssignmentTest::shouldFindWhatTryingAllFinds()
{
    QFETCH(Make, make);
    PointSets sets(401);
    int solved = 0;
    for (int trial = 0; trial < 2000; ++trial) {
        const int count = sets.integer(1, 6);
        const Costs costs = make(sets, count);
        const double least = leastCost(costs, count);
        LinearAssignment assignment(count);
        const bool found = assignment.solve(AllowedPairs(count), costs);
        QCOMPARE(found, std::isfinite(least));
        if (!found)
            continue;
        ++solved;
        QVERIFY(isComplete(assignment.columns()));
        QVERIFY(std::fabs(costOf(costs, assignment.columns()) - least) <= 1e-12 * std::fabs(least));
    }
    QVERIFY(solved > 500);
}

void LinearAssignmentTest::shouldProveTheCostOfLargeAssignments_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("count");
    for (const int count : {20, 50, 200}) {
        QTest::addRow("%d continuous", count) << Make(continuous) << count;
        QTest::addRow("%d degenerate", count) << Make(degenerate) << count;
        QTest::addRow("%d twins", count) << Make(withTwins) << count;
    }
}

void LinearAssignmentTest::shouldProveTheCostOfLargeAssignments()
{
    QFETCH(Make, make);
    QFETCH(int, count);
    PointSets sets(402);
    for (int trial = 0; trial < 5; ++trial) {
        const Costs costs = make(sets, count);
        LinearAssignment assignment(count);
        QVERIFY(assignment.solve(AllowedPairs(count), costs));
        QVERIFY(isComplete(assignment.columns()));
        QVERIFY(leastRest(costs, assignment) >= -1e-9);
        QVERIFY(std::fabs(assignment.bound() - costOf(costs, assignment.columns())) < 1e-8);
    }
}

void LinearAssignmentTest::shouldGiveUpAboveTheLimitAndOnlyThere()
{
    PointSets sets(403);
    for (int trial = 0; trial < 1000; ++trial) {
        const int count = sets.integer(1, 6);
        const Costs costs = continuous(sets, count);
        const double least = leastCost(costs, count);
        LinearAssignment assignment(count);
        QVERIFY(!assignment.solve(AllowedPairs(count), costs, least - 1e-6));
        QCOMPARE(assignment.columns(), std::vector<int>(static_cast<std::size_t>(count), -1));
        QVERIFY(assignment.solve(AllowedPairs(count), costs, least + 1e-6));
        QVERIFY(isComplete(assignment.columns()));
    }
}

void LinearAssignmentTest::shouldBeginWithAnyPrices()
{
    PointSets sets(404);
    for (int trial = 0; trial < 500; ++trial) {
        const int count = sets.integer(2, 6);
        const Costs costs = partlyForbidden(sets, count);
        LinearAssignment assignment(count);
        std::vector<double> prices(static_cast<std::size_t>(count));
        for (double &price : prices)
            price = sets.uniform(-3000, 3000);
        assignment.setColumnPrices(prices);
        const double least = leastCost(costs, count);
        QCOMPARE(assignment.solve(AllowedPairs(count), costs), std::isfinite(least));
        if (!std::isfinite(least))
            continue;
        QVERIFY(std::fabs(costOf(costs, assignment.columns()) - least) < 1e-9);
        QVERIFY(leastRest(costs, assignment) >= -1e-9);
        QVERIFY(std::fabs(assignment.bound() - least) < 1e-8);
    }
}

/// The same as if all others cost infinitely much.
void LinearAssignmentTest::shouldUseAllowedPairsOnly()
{
    PointSets sets(405);
    int solved = 0;
    for (int trial = 0; trial < 1000; ++trial) {
        const int count = sets.integer(2, 6);
        const Costs costs = partlyForbidden(sets, count);
        AllowedPairs pairs(count);
        const bool isNarrower = pairs.narrow(costs, 1e9);
        Costs ofPairs;
        for (const double cost : costs) {
            if (!isNarrower || cost < forbidden)
                ofPairs.push_back(cost);
        }
        QCOMPARE(ofPairs.size(), pairs.size());
        const double least = leastCost(costs, count);
        LinearAssignment assignment(count);
        QCOMPARE(assignment.solve(pairs, ofPairs), std::isfinite(least));
        if (!std::isfinite(least))
            continue;
        solved += isNarrower ? 1 : 0;
        QVERIFY(std::fabs(costOf(costs, assignment.columns()) - least) < 1e-9);
        QVERIFY(std::fabs(assignment.bound() - least) < 1e-8);
    }
    QVERIFY(solved > 100);
}

void LinearAssignmentTest::shouldEndWithinALargeSolutionWhenToldSo()
{
    PointSets sets(406);
    const Costs costs = continuous(sets, 150);
    LinearAssignment assignment(150);
    int asked = 0;
    assignment.setGoOn([&asked]() { return ++asked < 3; });
    QVERIFY(!assignment.solve(AllowedPairs(150), costs));
    QCOMPARE(asked, 3);
    assignment.setGoOn([]() { return true; });
    QVERIFY(assignment.solve(AllowedPairs(150), costs));
    QVERIFY(isComplete(assignment.columns()));
}

void LinearAssignmentTest::shouldAssignASingleRow()
{
    LinearAssignment assignment(1);
    QVERIFY(assignment.solve(AllowedPairs(1), {7.0}));
    QCOMPARE(assignment.columns(), std::vector<int>{0});
    QCOMPARE(assignment.bound(), 7.0);
    QVERIFY(!assignment.solve(AllowedPairs(1), {forbidden}));
}

ROOM_TEST_CLASS(LinearAssignmentTest)

#include "LinearAssignmentTest.moc"
