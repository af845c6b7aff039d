#include "AssignmentSearch.h"

#include "PlainLoop.h"
#include "SweepFamilies.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <numeric>

namespace
{

using Outcome = AssignmentSearch::Outcome;
using Rival = AssignmentSearch::Rival;

struct Totals {
    int cases = 0;
    int valid = 0;
    int rotations = 0; ///< searches over rotations that have ended
};

/// After so many questions a search over rotations of few points is given up: hardly one set asks more, and
/// then takes as long as all the others together.
int patienceWithRotations()
{
    return TestLoad::isWholeSweep() ? 200 : 70;
}

/// Lets a search ask so often before it is cancelled.
AssignmentSearch::GoOn questions(int count)
{
    return [count]() mutable { return count-- > 0; };
}

/// An empty text, or what differs from the loop.
QString difference(const AssignmentSearch::Result &result, const PlainLoop &loop)
{
    if ((result.outcome == Outcome::Found) != loop.found)
        return QStringLiteral("found");
    if (result.order != loop.order)
        return QStringLiteral("order");
    if (result.bestMm < loop.best || result.bestMm > loop.best)
        return QStringLiteral("residual");
    return {};
}

/// Every third set goes through the rotations as well, which take longer on few points.
QString difference(const SweepFamilies::Case &points, Totals &totals)
{
    const PlainLoop loop(points.references, points.measured);
    AssignmentSearch search(points.references, points.measured);
    const AssignmentSearch::Result tree = search.runTree({});
    totals.valid += loop.found ? 1 : 0;
    const QString wrong = difference(tree, loop);
    if (!wrong.isEmpty())
        return wrong;
    if (loop.found && (search.findRival(tree, {}) == Rival::Exists) != loop.rivalExists)
        return QStringLiteral("rival");
    if (++totals.cases % 3 != 0)
        return {};
    const AssignmentSearch::Result rotations = search.runRotations(questions(patienceWithRotations()));
    if (rotations.outcome == Outcome::Cancelled)
        return {};
    ++totals.rotations;
    const QString wrongToo = difference(rotations, loop);
    return wrongToo.isEmpty() ? wrongToo : QStringLiteral("over rotations, ") + wrongToo;
}

} // namespace

/// The search and the loop over all orders must give the same, case by case.
class AssignmentSweepTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheLoopsResult_data();
    void shouldGiveTheLoopsResult();
    void shouldGiveTheSameOverRotations();
    void shouldLeaveToTheTreeWhatItEndsSoon_data();
    void shouldLeaveToTheTreeWhatItEndsSoon();
    void shouldFindPlantedOrders_data();
    void shouldFindPlantedOrders();
};

void AssignmentSweepTest::shouldGiveTheLoopsResult_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("cases");
    QTest::newRow("3 points") << 3 << TestLoad::sweepShare(5000);
    QTest::newRow("4 points") << 4 << TestLoad::sweepShare(7000);
    QTest::newRow("5 points") << 5 << TestLoad::sweepShare(5500);
    QTest::newRow("6 points") << 6 << TestLoad::sweepShare(2000);
    QTest::newRow("7 points") << 7 << TestLoad::sweepShare(400);
    QTest::newRow("8 points") << 8 << TestLoad::sweepShare(100);
}

void AssignmentSweepTest::shouldGiveTheLoopsResult()
{
    QFETCH(int, points);
    QFETCH(int, cases);
    PointSets sets(static_cast<unsigned>(9000 + points));
    const std::vector<SweepFamilies::Family> &families = SweepFamilies::all();
    Totals totals;
    for (int i = 0; i < cases; ++i) {
        const SweepFamilies::Family &family = families[static_cast<std::size_t>(i) % families.size()];
        const SweepFamilies::Case sample = family.make(sets, points);
        const QString wrong = difference(sample, totals);
        QVERIFY2(
            wrong.isEmpty(),
            qPrintable(
                QStringLiteral("%1: %2, case %3").arg(QString::fromStdString(family.name), wrong).arg(i)));
    }
    QCOMPARE(totals.cases, cases);
    QVERIFY2(totals.valid > cases / 2, qPrintable(QString::number(totals.valid)));
    QVERIFY2(totals.rotations > cases / 4, qPrintable(QString::number(totals.rotations)));
}

/// Beyond what the loop can do: wherever both searches end, they must agree.
void AssignmentSweepTest::shouldGiveTheSameOverRotations()
{
    PointSets sets(9100);
    int compared = 0;
    const int cases = TestLoad::sweepShare(300);
    const std::vector<SweepFamilies::Family> &families = SweepFamilies::all();
    for (int i = 0; i < cases; ++i) {
        const SweepFamilies::Family &family = families[static_cast<std::size_t>(i) % families.size()];
        const SweepFamilies::Case points = family.make(sets, 9 + i % 7);
        AssignmentSearch search(points.references, points.measured);
        const AssignmentSearch::Result tree = search.runTree(questions(100));
        const AssignmentSearch::Result rotations = search.runRotations(questions(100));
        if (tree.outcome == Outcome::Cancelled || rotations.outcome == Outcome::Cancelled)
            continue;
        ++compared;
        QVERIFY2(tree.outcome == rotations.outcome && tree.order == rotations.order,
                 qPrintable(QStringLiteral("%1, case %2").arg(QString::fromStdString(family.name)).arg(i)));
        QCOMPARE(tree.bestMm, rotations.bestMm);
    }
    QVERIFY2(compared > cases / 2, qPrintable(QString::number(compared)));
}

void AssignmentSweepTest::shouldLeaveToTheTreeWhatItEndsSoon_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("fewest");
    QTest::newRow("10 points") << 10 << 88;
    QTest::newRow("20 points") << 20 << 69;
    QTest::newRow("30 points") << 30 << 60;
    QTest::newRow("50 points") << 50 << 49;
}

/// The rotations come in only after some 2 ms of the tree: until then a search makes the same fits and asks
/// as often as the tree alone. How many of all sets end by then shows that the tree counts what it does.
void AssignmentSweepTest::shouldLeaveToTheTreeWhatItEndsSoon()
{
    QFETCH(int, points);
    QFETCH(int, fewest);
    constexpr int questionsOfTwoMilliseconds = 4;
    constexpr int setsOfFamily = 4;
    PointSets sets(static_cast<unsigned>(9300 + points));
    int ended = 0;
    for (const SweepFamilies::Family &family : SweepFamilies::all()) {
        for (int i = 0; i < setsOfFamily; ++i) {
            const SweepFamilies::Case sample = family.make(sets, points);
            AssignmentSearch search(sample.references, sample.measured);
            int ofTree = 0, ofSearch = 0;
            const AssignmentSearch::Result tree =
                search.runTree([&ofTree]() { return ++ofTree <= questionsOfTwoMilliseconds; });
            if (tree.outcome == Outcome::Cancelled)
                continue;
            ++ended;
            const AssignmentSearch::Result result = search.run([&ofSearch]() { return ++ofSearch < 100; });
            QVERIFY2(ofSearch == ofTree, family.name.c_str());
            QCOMPARE(result.order, tree.order);
        }
    }
    QVERIFY2(ended >= fewest, qPrintable(QString::number(ended)));
}

void AssignmentSweepTest::shouldFindPlantedOrders_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("cases");
    QTest::newRow("9 points") << 9 << TestLoad::sweepShare(250);
    QTest::newRow("12 points") << 12 << TestLoad::sweepShare(250);
    QTest::newRow("20 points") << 20 << TestLoad::sweepShare(200);
    QTest::newRow("50 points") << 50 << TestLoad::sweepShare(200);
    QTest::newRow("100 points") << 100 << TestLoad::sweepShare(70);
    QTest::newRow("200 points") << 200 << TestLoad::sweepShare(30);
}

void AssignmentSweepTest::shouldFindPlantedOrders()
{
    QFETCH(int, points);
    QFETCH(int, cases);
    PointSets sets(static_cast<unsigned>(9200 + points));
    for (int i = 0; i < cases; ++i) {
        const std::vector<double> values = sets.box(points, 2000);
        const MatchingPoints references = asPoints(values), moved = asPoints(sets.moved(values, 0.2));
        PointOrder planted(references.size());
        std::iota(planted.begin(), planted.end(), 0);
        std::shuffle(planted.begin(), planted.end(), sets.generator());
        MatchingPoints measured(references.size());
        for (std::size_t k = 0; k < planted.size(); ++k)
            measured[static_cast<std::size_t>(planted[k])] = moved[k];
        AssignmentSearch search(references, measured);
        const AssignmentSearch::Result result = search.run({});
        QVERIFY(result.outcome == Outcome::Found);
        QCOMPARE(result.order, planted);
    }
}

ROOM_TEST_CLASS(AssignmentSweepTest)

#include "AssignmentSweepTest.moc"
