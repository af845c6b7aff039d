#include "RecordList.h"

#include "AllocationCounter.h"
#include "MeasurementRecords.h"
#include "TestRegistry.h"

#include <QObject>
#include <QtTest>

#include <limits>

class RecordListTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFillUpWithBlankEntries();
    void shouldCountNothingInABlankEntry();
    void shouldKeepTheEntriesThatStay();
    void shouldHoldItsSizeBetweenNothingAndTheCap();
    void shouldBlankEveryEntry();
    void shouldMakeEntriesOnlyWhenTheyAreAskedFor();
    void shouldGiveNullOutsideTheList();
};

void RecordListTest::shouldFillUpWithBlankEntries()
{
    RecordList<MarkerRecord> list;
    list.resize(3);
    QCOMPARE(list.count(), 3);
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(list.at(index)->id, index);
        QCOMPARE(list.at(index)->quality, -1.0);
        QCOMPARE(list.at(index)->location, RecordLocation());
    }
}

void RecordListTest::shouldCountNothingInABlankEntry()
{
    RecordList<HandheldRecord> handhelds;
    handhelds.resize(1);
    QCOMPARE(handhelds.at(0)->buttonCount, 0);
    QCOMPARE(handhelds.at(0)->joystickCount, 0);
    QCOMPARE(handhelds.at(0)->buttons, RecordButtons());
    RecordList<MeasurementToolRecord> tools;
    tools.resize(1);
    QCOMPARE(tools.at(0)->flagCount, 0);
    QCOMPARE(tools.at(0)->tipRadius, 0.0);
    QCOMPARE(tools.at(0)->flags, RecordButtons());
    RecordList<GloveRecord> gloves;
    gloves.resize(1);
    QCOMPARE(gloves.at(0)->side, 0);
    QCOMPARE(gloves.at(0)->fingerCount, 0);
    QCOMPARE(MarkerRecord().id, 0);
}

void RecordListTest::shouldKeepTheEntriesThatStay()
{
    RecordList<MarkerRecord> list;
    list.resize(2);
    list.at(0)->quality = 0.5;
    list.at(1)->quality = 0.75;
    list.resize(1);
    list.resize(2);
    QCOMPARE(list.at(0)->quality, 0.5);
    QCOMPARE(list.at(1)->quality, -1.0);
}

void RecordListTest::shouldHoldItsSizeBetweenNothingAndTheCap()
{
    RecordList<MarkerRecord> list;
    list.resize(std::numeric_limits<long long>::max());
    QCOMPARE(list.count(), 100000);
    list.resize(std::numeric_limits<long long>::min());
    QCOMPARE(list.count(), 0);
}

void RecordListTest::shouldBlankEveryEntry()
{
    RecordList<MarkerRecord> list;
    list.resize(2);
    list.at(1)->id = 7;
    list.at(1)->quality = 1.0;
    list.at(1)->location = {1.0, 2.0, 3.0};
    list.blank();
    QCOMPARE(list.at(1)->id, 1);
    QCOMPARE(list.at(1)->quality, -1.0);
    QCOMPARE(list.at(1)->location, RecordLocation());
}

void RecordListTest::shouldMakeEntriesOnlyWhenTheyAreAskedFor()
{
    RecordList<MarkerRecord> list;
    const std::size_t before = AllocationCounter::count();
    list.resize(100000);
    list.blank();
    QCOMPARE(AllocationCounter::count(), before);
    QCOMPARE(list.at(99999)->id, 99999);
    QVERIFY(AllocationCounter::count() > before);
}

void RecordListTest::shouldGiveNullOutsideTheList()
{
    RecordList<MarkerRecord> list;
    list.resize(2);
    const RecordList<MarkerRecord> &readOnly = list;
    for (const int outside : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QVERIFY(!list.at(outside));
        QVERIFY(!readOnly.at(outside));
    }
    QCOMPARE(readOnly.at(1), list.at(1));
}

ROOM_TEST_CLASS(RecordListTest)

#include "RecordListTest.moc"
