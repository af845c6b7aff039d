#include "RowScan.h"

#include "PointSets.h"
#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>
#include <limits>
#include <vector>

namespace
{

constexpr double infinite = std::numeric_limits<double>::infinity();

/// From 0 to `most`, each of them several times.
std::vector<double> numbers(PointSets &sets, std::size_t size, int most)
{
    std::vector<double> values(size);
    for (double &value : values)
        value = sets.integer(0, most);
    return values;
}

} // namespace

class RowScanTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindTheLeastWhereverItStands()
    {
        for (std::size_t size = 1; size < 12; ++size) {
            for (std::size_t place = 0; place < size; ++place) {
                std::vector<double> values(size, 5.0);
                values[place] = -2.5;
                QCOMPARE(RowScan::leastOf(values.data(), size), -2.5);
                QCOMPARE(RowScan::firstUpTo(-2.5, values.data(), size), place);
            }
        }
    }

    void shouldFindNothingInNothing()
    {
        const std::vector<double> values = {7.0, infinite, infinite};
        QVERIFY(RowScan::leastOf(values.data(), 0) >= infinite);
        QVERIFY(RowScan::leastOf(values.data() + 1, 2) >= infinite);
        QCOMPARE(RowScan::firstUpTo(6.0, values.data(), 3), std::size_t{3});
    }

    void shouldTellTheFirstOfEqualNumbers()
    {
        const std::vector<double> values = {4.0, 3.0, 3.0, 4.0, 3.0};
        QCOMPARE(RowScan::firstUpTo(3.0, values.data(), values.size()), std::size_t{1});
    }

    void shouldLowerWhatIsGreaterOnly()
    {
        PointSets sets(61);
        for (std::size_t size = 1; size < 12; ++size) {
            // GIVEN
            const std::vector<double> before = numbers(sets, size, 9), values = numbers(sets, size, 9);
            std::vector<double> least = before;
            std::vector<std::int64_t> origins(size, 3);
            // WHEN
            RowScan::lower(least.data(), origins.data(), values.data(), size, 0.5, 8);
            // THEN
            for (std::size_t k = 0; k < size; ++k) {
                QCOMPARE(least[k], std::min(before[k], values[k] + 0.5));
                QCOMPARE(origins[k], std::int64_t(values[k] + 0.5 < before[k] ? 8 : 3));
            }
        }
    }

    void shouldLeaveTheOriginOfWhatIsEqual()
    {
        std::vector<double> least = {1.0, infinite, -infinite};
        std::vector<std::int64_t> origins = {3, 4, 5};
        const std::vector<double> values = {1.0, infinite, -7.0};
        RowScan::lower(least.data(), origins.data(), values.data(), 3, 0.0, 8);
        QVERIFY((origins == std::vector<std::int64_t>{3, 4, 5}));
    }
};

ROOM_TEST_CLASS(RowScanTest)
#include "RowScanTest.moc"
