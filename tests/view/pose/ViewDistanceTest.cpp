#include "ViewDistance.h"

#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace
{

ViewProjection square()
{
    ViewProjection projection;
    projection.width = 400;
    projection.height = 400;
    return projection;
}

RoomTrafoData translated(double x, double y, double z)
{
    RoomTrafoData data;
    data.translation = {x, y, z};
    return data;
}

bool isNear(double value, double expected)
{
    return std::abs(value - expected) <= 1e-6 * expected;
}

/// 1.1 / sin(22.5 degrees)
constexpr double factor = 2.8744385;

} // namespace

class ViewDistanceTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldProjectAsAgreedUntilItsSizeIsKnown()
    {
        const ViewProjection projection;
        QCOMPARE(projection.fieldOfViewDegrees, 45.0);
        QCOMPARE(projection.nearPlane, 1.0);
        QCOMPARE(projection.farPlane, 100000.0);
        QCOMPARE(projection.width, 1);
        QCOMPARE(projection.height, 1);
        QCOMPARE(ViewExtraPoint().enabled, (std::array<bool, 3>()));
    }

    void shouldBe900WithoutARoom()
    {
        const abcRoom room(nullptr);
        QCOMPARE(bestViewDistance(room, square(), {}), 900.0);
    }

    void shouldBeAtLeast900()
    {
        abcRoom room(nullptr);
        room.loadRoom(translated(300.0, 0.0, 0.0));
        QCOMPARE(bestViewDistance(room, square(), {}), 900.0);
    }

    void shouldShowTheUntransformedOrigin()
    {
        abcRoom room(nullptr);
        room.loadRoom(translated(300.0, -400.0, 1200.0));
        QVERIFY(isNear(bestViewDistance(room, square(), {}), 1300.0 * factor));
        room.setPendingPosition(3.0, 4.0, -1200.0 - 1188.0);
        QVERIFY(isNear(bestViewDistance(room, square(), {}),
                       std::sqrt(297.0 * 297.0 + 404.0 * 404.0 + 3588.0 * 3588.0) * factor));
    }

    void shouldGrowInATallWindow()
    {
        abcRoom room(nullptr);
        room.loadRoom(translated(1000.0, 0.0, 0.0));
        ViewProjection tall = square();
        tall.height = 1000;
        QVERIFY(isNear(bestViewDistance(room, tall, {}), 1000.0 * factor * 2.5));
        tall.width = 4000;
        QVERIFY(isNear(bestViewDistance(room, tall, {}), 1000.0 * factor));
    }

    void shouldRegardTheExtraPointOnlyWithAllItsFlags()
    {
        abcRoom room(nullptr);
        room.loadRoom({});
        room.setPendingPosition(0.0, 0.0, 500.0);
        room.commit();
        ViewExtraPoint extra;
        extra.point.set(0.0, 0.0, 5500.0);
        extra.enabled = {true, true, false};
        QVERIFY(isNear(bestViewDistance(room, square(), extra), 500.0 * factor));
        extra.enabled[2] = true;
        QVERIFY(isNear(bestViewDistance(room, square(), extra), 5000.0 * factor));
    }

    void shouldBe900ForNumbersThatAreNotFinite_data()
    {
        QTest::addColumn<double>("value");
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("too large to square") << 1e300;
    }
    void shouldBe900ForNumbersThatAreNotFinite()
    {
        QFETCH(double, value);
        abcRoom room(nullptr);
        room.loadRoom(translated(value, 0.0, 0.0));
        QCOMPARE(bestViewDistance(room, square(), {}), 900.0);
        RoomTrafoData data;
        data.rotation.fill(value);
        data.translation = {1.0, 2.0, 3.0};
        room.loadRoom(data);
        QCOMPARE(bestViewDistance(room, square(), {}), 900.0);
    }
};

ROOM_TEST_CLASS(ViewDistanceTest)
#include "ViewDistanceTest.moc"
