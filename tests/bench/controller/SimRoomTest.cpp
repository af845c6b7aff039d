#include "SimRoom.h"

#include "TestRegistry.h"

#include <QtTest>

class SimRoomTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHoldTheStandardScene()
    {
        // WHEN
        const SimRoom room = SimRoom::standard();
        // THEN
        QCOMPARE(int(room.cameras.size()), 4);
        QCOMPARE(int(room.tools.size()), 1);
        QCOMPARE(int(room.devices.size()), 1);
        QCOMPARE(int(room.bodies.size()), 1);
        QCOMPARE(int(room.workpiece.points.size()), 6);
        QCOMPARE(room.cameras[0].pose.position.x, 2000.0);
        QCOMPARE(room.cameras[0].pose.position.z, 2500.0);
    }

    void shouldMoveATipToItsTargetAndNoFarther()
    {
        // GIVEN
        SimRoom room = SimRoom::standard();
        SimTool &tool = room.tools[0];
        tool.tip = {0, 0, 0};
        tool.target = {30, 40, 0};
        tool.speedMm = 10.0;
        // WHEN, THEN
        room.move(2.0);
        QVERIFY(length(tool.tip - SimVector{12, 16, 0}) < 1e-9);
        room.move(100.0);
        QVERIFY(length(tool.tip - SimVector{30, 40, 0}) < 1e-9);
        QCOMPARE(tool.speedMm, 0.0);
    }

    void shouldEndClicksAndKeepWhatIsHeld()
    {
        // GIVEN
        SimRoom room = SimRoom::standard();
        room.tools[0].buttons[0].clicked = true;
        room.devices[0].buttons[1].held = true;
        room.devices[0].buttons[2].clicked = true;
        // WHEN
        room.endClicks();
        // THEN
        QVERIFY(!room.tools[0].buttons[0].isDown());
        QVERIFY(room.devices[0].buttons[1].isDown());
        QVERIFY(!room.devices[0].buttons[2].isDown());
    }

    void shouldFindTheFootBelowTheFirstMarker()
    {
        // GIVEN
        SimAngleTool tool;
        tool.marker1 = {{10, 20, 30}, SimRotation::fromDegrees(90, 0, 0)}; // its normal points to -y
        tool.heightMm = 5.0;
        // WHEN, THEN
        QVERIFY(length(tool.foot() - SimVector{10, 25, 30}) < 1e-9);
    }
};

ROOM_TEST_CLASS(SimRoomTest)
#include "SimRoomTest.moc"
