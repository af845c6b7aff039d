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

/// What a search may ask, and how often it has.
class Questions
{
public:
    /// False from the twelfth on.
    [[nodiscard]] AssignmentSearch::GoOn goOn()
    {
        return [this]() { return ++m_asked < most; };
    }

    [[nodiscard]] bool areUsedUp() const { return m_asked == most; }

private:
    static constexpr int most = 12;
    int m_asked = 0;
};

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
        Questions ofRun, ofRival;
        AssignmentSearch::Result result;
        bool cancelled = false;
        AssignmentSearch::Rival rival = AssignmentSearch::Rival::None;
        // WHEN
        const double most = megabytesOf([&] {
            AssignmentSearch search(references, measured);
            result = search.run(ofRun.goOn());
            cancelled = result.outcome == AssignmentSearch::Outcome::Cancelled;
            if (cancelled) {
                result.order.resize(references.size());
                std::iota(result.order.begin(), result.order.end(), 0);
                result.bestMm = static_cast<float>(noiseMm);
            }
            rival = search.findRival(result, ofRival.goOn());
        });
        // THEN
        QVERIFY2(most < mostMegabytes, qPrintable(QString::number(most)));
        QVERIFY(most > 10.0 || !TestLoad::isFull());
        // Where the tree takes too much, the rotations go on: only the asker ends a search.
        QCOMPARE(cancelled, ofRun.areUsedUp());
        QCOMPARE(rival == AssignmentSearch::Rival::Cancelled, ofRival.areUsedUp());
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
