#include "SimRoom.h"

#include "TestRegistry.h"

#include <QtTest>

#include <array>
#include <cmath>

namespace
{

bool lies(const SimPose &pose, const SimVector &position, const std::array<double, 3> &degrees)
{
    const std::array<double, 3> found = pose.rotation.degrees();
    bool isTurned = true;
    for (std::size_t i = 0; i < found.size(); ++i)
        isTurned = isTurned && std::fabs(found[i] - degrees[i]) < 1e-9;
    return isTurned && length(pose.position - position) < 1e-9;
}

} // namespace

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
    }

    void shouldPutEverythingOfTheStandardSceneInItsPlace()
    {
        const SimRoom room = SimRoom::standard();
        QVERIFY(length(room.tools[0].tip - SimVector{100, 200, 300}) < 1e-9);
        QVERIFY(lies(room.devices[0].pose, {500, 0, 1000}, {0, 0, 0}));
        QVERIFY(lies(room.bodies[0].pose, {50, 60, 70}, {0, 0, 0}));
        QVERIFY(lies(room.angleTool.marker1, {-300, 150, 55}, {0, 0, 30}));
        QVERIFY(lies(room.workpiece.pose, {400, -250, 700}, {4, -7, 25}));
        const SimVector points[] = {{0, 0, 0},      {620, 0, 0},     {0, 410, 0},
                                    {620, 380, 60}, {150, 120, 340}, {480, 90, 130}};
        for (std::size_t i = 0; i < room.workpiece.points.size(); ++i)
            QVERIFY(length(room.workpiece.points[i].nominal - points[i]) < 1e-9);
    }

    void shouldBeginWithEverythingInSightAndNothingMoving()
    {
        const SimTool tool;
        QVERIFY(tool.tracked && tool.tipCalibrated && tool.toleranceCheck);
        QCOMPARE(tool.speedMm, 0.0);
        QCOMPARE(tool.tremorMm, 0.0);
        QCOMPARE(tool.noiseMm, 0.1);
        QCOMPARE(tool.durationSeconds, 1.0);
        QCOMPARE(tool.toleranceMm, 1.5);
        QCOMPARE(tool.tipRadiusMm, 2.5);
        QVERIFY(SimDevice().tracked && SimBody().tracked && SimAngleTool().visible);
        QCOMPARE(SimDevice().joystick, std::vector<double>(2, 0.0));
        QVERIFY(SimCamera().hasRoom);
        QCOMPARE(SimCamera().progressRate, 1.0);
        QVERIFY(!SimButton().held && !SimButton().clicked && !SimButton().isDown());
        const SimVector point;
        QVERIFY(point.x == 0.0 && point.y == 0.0 && point.z == 0.0);
    }

    void shouldHangTheCamerasAroundTheMiddle()
    {
        const SimRoom room = SimRoom::standard();
        const double serials[] = {28, 31, 34, 45};
        const SimVector places[] = {{2000, 0, 2500}, {0, 2000, 2500}, {-2000, 0, 2500}, {0, -2000, 2500}};
        for (std::size_t i = 0; i < room.cameras.size(); ++i) {
            const SimCamera &camera = room.cameras[i];
            QCOMPARE(QString::fromStdString(camera.serial).toDouble(), serials[i]);
            QVERIFY(length(camera.pose.position - places[i]) < 1e-9);
            // Tilted by 120 degrees, the third axis points outwards and down.
            const double outwards = std::sqrt(0.75) / 2000.0;
            const SimVector axis{places[i].x * outwards, places[i].y * outwards, -0.5};
            QVERIFY(length(camera.pose.rotation.column(2) - axis) < 1e-9);
        }
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

    void shouldStandStillOnceItIsThere()
    {
        // GIVEN
        SimRoom room = SimRoom::standard();
        SimTool &tool = room.tools[0];
        tool.tip = {0, 0, 0};
        tool.target = {0, 0, 50};
        tool.speedMm = 12.5;
        // WHEN
        room.move(4.0); // to the point
        // THEN
        QVERIFY(length(tool.tip - tool.target) < 1e-9);
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
