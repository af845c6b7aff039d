#include "AllocationCounter.h"
#include "AssignmentSearch.h"
#include "PointSets.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>
#include <numeric>

namespace
{

constexpr double megabyte = 1024.0 * 1024.0;
constexpr double mostMegabytes = 64.0;

/// Lets a search ask so often before it is cancelled.
AssignmentSearch::GoOn questions(int count)
{
    return [count]() mutable { return count-- > 0; };
}

double megabytesOf(const std::function<void()> &work)
{
    const std::size_t before = AllocationCounter::bytes();
    AllocationCounter::forgetLargest();
    work();
    return static_cast<double>(AllocationCounter::largestBytes() - before) / megabyte;
}

} // namespace

/// What the search for the order takes from the heap at most.
class SearchMemoryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldStayWithinItsBoundForTheMostPoints_data()
    {
        QTest::addColumn<double>("noiseMm");
        QTest::newRow("points that fit") << 0.3;
        QTest::newRow("noise of the spacing") << 200.0;
    }

    void shouldStayWithinItsBoundForTheMostPoints()
    {
        // GIVEN
        QFETCH(double, noiseMm);
        PointSets sets(551);
        const int count = TestLoad::share(int(AssignmentSearch::mostPoints));
        const std::vector<double> values = sets.box(count, 1000);
        const MatchingPoints references = asPoints(values),
                             measured = asPoints(sets.shuffled(sets.moved(values, noiseMm)));
        // WHEN
        const double most = megabytesOf([&] {
            AssignmentSearch search(references, measured);
            AssignmentSearch::Result result = search.run(questions(12));
            if (result.outcome == AssignmentSearch::Outcome::Cancelled) {
                result.order.resize(references.size());
                std::iota(result.order.begin(), result.order.end(), 0);
                result.bestMm = static_cast<float>(noiseMm);
            }
            (void)search.findRival(result, questions(12));
        });
        // THEN
        QVERIFY2(most < mostMegabytes, qPrintable(QString::number(most)));
        QVERIFY(most > 10.0 || !TestLoad::isFull());
    }

    /// The rotations alone; what they take grows with the square of the points, but for what they remember.
    void shouldStayWithinItsBoundOverRotations()
    {
        constexpr int count = 120;
        constexpr double remembered = 3.0;
        PointSets sets(552);
        const MatchingPoints references = asPoints(sets.box(count, 1000)),
                             measured = asPoints(sets.box(count, 1000));
        int asked = 0;
        const double most = megabytesOf([&] {
            AssignmentSearch search(references, measured);
            (void)search.runRotations([&asked]() { return ++asked < 1500; });
        });
        QCOMPARE(asked, 1500);
        const double share = count / static_cast<double>(AssignmentSearch::mostPoints);
        QVERIFY2(most < remembered + (mostMegabytes - remembered) * share * share,
                 qPrintable(QString::number(most)));
    }
};

ROOM_TEST_CLASS(SearchMemoryTest)

#include "SearchMemoryTest.moc"
