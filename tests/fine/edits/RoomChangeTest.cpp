#include "RoomChange.h"

#include "RoomTrafoData.h"
#include "TestRegistry.h"

#include <Eigen/Geometry>
#include <QtTest>

#include <cmath>

namespace
{

constexpr double radians = 3.14159265358979323846 / 180.0;

RoomTrafoData record(const Eigen::Matrix3d &rotation, const Eigen::Vector3d &zeroPoint)
{
    RoomTrafoData data;
    for (int i = 0; i < 9; ++i)
        data.rotation[std::size_t(i)] = rotation(i / 3, i % 3);
    for (int i = 0; i < 3; ++i)
        data.translation[std::size_t(i)] = -(rotation.transpose() * zeroPoint)(i);
    return data;
}

Eigen::Matrix3d turn(double degrees, const Eigen::Vector3d &axis)
{
    return Eigen::AngleAxisd(degrees * radians, axis.normalized()).toRotationMatrix();
}

bool isNear(const bsVector &v, const Eigen::Vector3d &expected)
{
    return (Eigen::Vector3d(v.x, v.y, v.z) - expected).norm() < 1e-6;
}

} // namespace

class RoomChangeTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindNoneBetweenEqualRecords()
    {
        const RoomTrafoData data = record(turn(33.0, {1, 2, 3}), {100, 200, 300});
        const RoomChange change = RoomChange::between(data, data);
        QVERIFY(!change.isMove() && !change.isTurn() && !change.isScaling());
    }

    void shouldFindNoneInWhatIsTooSmallToBeTold()
    {
        RoomTrafoData data = record(turn(0.0004, {0, 0, 1}), {0.0004, 0, 0});
        data.scaling = 1.000004;
        const RoomChange change = RoomChange::between(RoomTrafoData(), data);
        QVERIFY(!change.isMove() && !change.isTurn() && !change.isScaling());
    }

    void shouldFindWhatIsJustLargeEnoughToBeTold()
    {
        RoomTrafoData data = record(turn(0.0006, {0, 0, 1}), {0, 0.0005, 0});
        data.scaling = 1.000006;
        const RoomChange change = RoomChange::between(RoomTrafoData(), data);
        QCOMPARE(change.movedMm, 0.0005);
        QVERIFY(std::abs(change.turnedDegrees - 0.0006) < 1e-9);
        QCOMPARE(change.scalingAfter, 1.000006);
    }

    void shouldTellHowFarTheZeroPointMovesInTheRoom()
    {
        const RoomTrafoData before = record(turn(70.0, {0, 1, 1}), {10, 20, 30});
        const RoomTrafoData after = record(turn(-20.0, {1, 0, 2}), {13, 24, 30});
        QVERIFY(std::abs(RoomChange::between(before, after).movedMm - 5.0) < 1e-9);
        QVERIFY(RoomChange::between(before, after).isMove());
    }

    void shouldTellTheTurnInTheAxesBefore_data()
    {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<QList<double>>("axis");
        QTest::addColumn<double>("told");
        QTest::addColumn<QList<double>>("toldAxis");
        QTest::newRow("z") << 30.0 << QList<double>{0, 0, 1} << 30.0 << QList<double>{0, 0, 1};
        QTest::newRow("back about z") << -30.0 << QList<double>{0, 0, 1} << -30.0 << QList<double>{0, 0, 1};
        QTest::newRow("about minus y") << 12.5 << QList<double>{0, -1, 0} << -12.5 << QList<double>{0, 1, 0};
        QTest::newRow("half a turn") << 180.0 << QList<double>{1, 0, 0} << 180.0 << QList<double>{1, 0, 0};
        QTest::newRow("more than half")
            << 200.0 << QList<double>{0, 0, 1} << -160.0 << QList<double>{0, 0, 1};
        QTest::newRow("slanted") << 45.0 << QList<double>{2, -6, 3} << -45.0
                                 << QList<double>{-2.0 / 7, 6.0 / 7, -3.0 / 7};
    }
    void shouldTellTheTurnInTheAxesBefore()
    {
        QFETCH(double, degrees);
        QFETCH(QList<double>, axis);
        QFETCH(double, told);
        QFETCH(QList<double>, toldAxis);
        const Eigen::Matrix3d before = turn(77.0, {3, 2, 1});
        const RoomChange change =
            RoomChange::between(record(before, {0, 0, 0}),
                                record(before * turn(degrees, {axis[0], axis[1], axis[2]}), {0, 0, 0}));
        QVERIFY(change.isTurn() && !change.isMove());
        QVERIFY(std::abs(std::abs(change.turnedDegrees) - std::abs(told)) < 1e-6);
        QVERIFY(isNear(change.axis, {toldAxis[0], toldAxis[1], toldAxis[2]}));
        if (std::abs(told) < 180.0)
            QVERIFY(std::abs(change.turnedDegrees - told) < 1e-6);
    }

    void shouldTellTheScaling()
    {
        RoomTrafoData after;
        after.scaling = 1.02;
        const RoomChange change = RoomChange::between(RoomTrafoData(), after);
        QVERIFY(change.isScaling() && !change.isMove() && !change.isTurn());
        QCOMPARE(change.scalingBefore, 1.0);
        QCOMPARE(change.scalingAfter, 1.02);
    }

    void shouldTakeWhatIsNotFiniteForNeutral()
    {
        RoomTrafoData broken;
        broken.rotation.fill(std::nan(""));
        broken.translation.fill(HUGE_VAL);
        broken.scaling = std::nan("");
        const RoomChange change = RoomChange::between(broken, RoomTrafoData());
        QVERIFY(!change.isMove() && !change.isTurn() && !change.isScaling());
    }
};

ROOM_TEST_CLASS(RoomChangeTest)
#include "RoomChangeTest.moc"
