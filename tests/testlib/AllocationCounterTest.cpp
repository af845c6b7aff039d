#include "AllocationCounter.h"

#include "TestRegistry.h"

#include <QtTest>

#include <memory>
#include <vector>

class AllocationCounterTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCountEachAllocationOnce()
    {
        const std::size_t before = AllocationCounter::count();
        const auto number = std::make_unique<int>(7);
        const std::size_t one = AllocationCounter::count();
        const std::vector<int> numbers(1000, *number);
        const std::size_t two = AllocationCounter::count();
        QCOMPARE(one, before + 1); // a comparison may allocate, too
        QCOMPARE(two, before + 2);
        QCOMPARE(numbers.back(), 7);
    }

    void shouldNotCountWhatIsGivenBack()
    {
        auto number = std::make_unique<int>(7);
        const std::size_t before = AllocationCounter::count();
        number.reset();
        const std::size_t after = AllocationCounter::count();
        QCOMPARE(after, before);
    }
};

ROOM_TEST_CLASS(AllocationCounterTest)
#include "AllocationCounterTest.moc"
