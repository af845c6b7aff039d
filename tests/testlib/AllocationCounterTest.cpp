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

    void shouldRememberTheMostBytesThatWereTaken()
    {
        // GIVEN
        AllocationCounter::forgetLargest();
        const std::size_t before = AllocationCounter::bytes();
        // WHEN
        std::size_t most = 0;
        {
            const std::vector<char> first(100000, 'a');
            const std::vector<char> second(50000, first.back());
            most = AllocationCounter::bytes();
        }
        const std::size_t after = AllocationCounter::bytes(), largest = AllocationCounter::largestBytes();
        AllocationCounter::forgetLargest();
        const std::size_t forgotten = AllocationCounter::largestBytes();
        // THEN
        QVERIFY(most >= before + 150000 && most < before + 160000);
        QCOMPARE(after, before);
        QCOMPARE(largest, most);
        QCOMPARE(forgotten, before);
    }
};

ROOM_TEST_CLASS(AllocationCounterTest)
#include "AllocationCounterTest.moc"
