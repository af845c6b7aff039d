#include "TwinPoints.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

/// The first and third, and the second and last are equal.
const MatchingPoints points = {{1, 2, 3}, {4, 5, 6}, {1, 2, 3}, {1, 2, 3.5}, {4, 5, 6}};

} // namespace

class TwinPointsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGroupEqualPoints()
    {
        // WHEN
        const TwinPoints twins(points);
        // THEN
        QCOMPARE(twins.groupCount(), 3);
        QCOMPARE(twins.members(twins.group(2)), (std::vector<int>{0, 2}));
        QCOMPARE(twins.members(twins.group(1)), (std::vector<int>{1, 4}));
        QCOMPARE(twins.members(twins.group(3)), std::vector<int>{3});
        QVERIFY(twins.any());
    }

    void shouldLeaveTheFirstPointsAlone_data()
    {
        QTest::addColumn<int>("firstExchangeable");
        QTest::addColumn<int>("groups");
        QTest::newRow("the first") << 1 << 4;
        QTest::newRow("the first two") << 2 << 5;
        QTest::newRow("all") << 5 << 5;
    }
    void shouldLeaveTheFirstPointsAlone()
    {
        // GIVEN
        QFETCH(int, firstExchangeable);
        QFETCH(int, groups);
        // WHEN
        const TwinPoints twins(points, firstExchangeable);
        // THEN
        QCOMPARE(twins.groupCount(), groups);
        QCOMPARE(twins.any(), groups < 5);
        QCOMPARE(twins.members(twins.group(0)), std::vector<int>{0});
    }
};

ROOM_TEST_CLASS(TwinPointsTest)
#include "TwinPointsTest.moc"
