#include "AssignmentSearch.h"

#include "PlainLoop.h"
#include "SweepFamilies.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

using Outcome = AssignmentSearch::Outcome;
using Rival = AssignmentSearch::Rival;

struct Totals {
    int cases = 0;
    int valid = 0;
};

/// An empty text, or what differs between the search and the loop.
QString difference(const SweepFamilies::Case &points, Totals &totals)
{
    const PlainLoop loop(points.references, points.measured);
    AssignmentSearch search(points.references, points.measured);
    const AssignmentSearch::Result tree = search.runTree({});
    ++totals.cases;
    totals.valid += loop.found ? 1 : 0;
    if ((tree.outcome == Outcome::Found) != loop.found)
        return QStringLiteral("found");
    if (tree.order != loop.order)
        return QStringLiteral("order");
    if (tree.bestMm < loop.best || tree.bestMm > loop.best)
        return QStringLiteral("residual");
    if (loop.found && (search.findRival(tree, {}) == Rival::Exists) != loop.rivalExists)
        return QStringLiteral("rival");
    return {};
}

} // namespace

/// The search and the loop over all orders must give the same, case by case.
class AssignmentSweepTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveTheLoopsResult_data();
    void shouldGiveTheLoopsResult();
};

void AssignmentSweepTest::shouldGiveTheLoopsResult_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("cases");
    QTest::newRow("3 points") << 3 << TestLoad::share(4000);
    QTest::newRow("4 points") << 4 << TestLoad::share(6000);
    QTest::newRow("5 points") << 5 << TestLoad::share(6000);
    QTest::newRow("6 points") << 6 << TestLoad::share(3500);
    QTest::newRow("7 points") << 7 << TestLoad::share(1000);
    QTest::newRow("8 points") << 8 << TestLoad::share(506);
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
}

ROOM_TEST_CLASS(AssignmentSweepTest)

#include "AssignmentSweepTest.moc"
