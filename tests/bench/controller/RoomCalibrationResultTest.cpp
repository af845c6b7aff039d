#include "RoomCalibrationResult.h"

#include "SimReply.h"
#include "SimRoom.h"
#include "SimRoomCalibrationSettings.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

/// The angle tool lies with its foot at (100, 200, 0), its arms along x and y of the world.
SimRoom roomWithTool()
{
    SimRoom room;
    room.angleTool.marker1.position = {100, 200, room.angleTool.heightMm};
    return room;
}

SimRoomCalibrationSettings fittingSettings()
{
    SimRoomCalibrationSettings settings;
    settings.type = "angle_no_wand";
    settings.anglesMm = SimAngleTool().distancesMm;
    settings.angleHeightMm = SimAngleTool().heightMm;
    return settings;
}

int fault(const SimRoom &room, const SimRoomCalibrationSettings &settings)
{
    const auto reply = calibrationFault(room, settings);
    return reply ? reply->code : 0;
}

bool isNear(const SimVector &a, const SimVector &b)
{
    return length(a - b) < 1e-9;
}

} // namespace

class RoomCalibrationResultTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldPutTheOriginAtTheFootAndTurnByTheType_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("normal") << QByteArray("normal") << 20.0 << 30.0;
        QTest::newRow("powerwall") << QByteArray("powerwall") << 30.0 << -20.0;
        QTest::newRow("powerwall_standing") << QByteArray("powerwall_standing") << 20.0 << 30.0;
    }
    void shouldPutTheOriginAtTheFootAndTurnByTheType()
    {
        // GIVEN
        QFETCH(QByteArray, type);
        QFETCH(double, y);
        QFETCH(double, z);
        // WHEN
        const SimPose base = baseFromAngleTool(roomWithTool(), type.toStdString());
        // THEN
        QVERIFY(isNear(base * SimVector{100, 200, 0}, {0, 0, 0}));
        QVERIFY(isNear(base * SimVector{110, 220, 30}, {10, y, z}));
    }

    void shouldTakeTheCoordinatesOfACamera()
    {
        // GIVEN
        SimRoom room = roomWithTool();
        room.cameras.resize(3);
        room.cameras[0].pose.position = {1, 0, 0};
        room.cameras[1].pose.position = {0, 2, 0};
        // WHEN, THEN
        QVERIFY(isNear(baseFromAngleTool(room, "first_camera") * SimVector{1, 0, 0}, {0, 0, 0}));
        QVERIFY(isNear(baseFromAngleTool(room, "mid_camera") * SimVector{0, 2, 0}, {0, 0, 0}));
    }

    void shouldFailForTheFirstReason()
    {
        // GIVEN
        SimRoom room = roomWithTool();
        SimRoomCalibrationSettings settings = fittingSettings();
        // WHEN, THEN
        QCOMPARE(fault(room, settings), 0);
        settings.anglesMm[2] += 0.49;
        QCOMPARE(fault(room, settings), 0);
        settings.anglesMm[2] += 0.02;
        QCOMPARE(fault(room, settings), 19);
        settings.type = "angle_wand";
        QCOMPARE(fault(room, settings), 18);
        room.angleTool.visible = false;
        QCOMPARE(fault(room, settings), 17);
    }

    void shouldCompareTheHeightToo()
    {
        // GIVEN
        SimRoomCalibrationSettings settings = fittingSettings();
        // WHEN
        settings.angleHeightMm -= 0.6;
        // THEN
        QCOMPARE(fault(roomWithTool(), settings), 19);
    }
};

ROOM_TEST_CLASS(RoomCalibrationResultTest)
#include "RoomCalibrationResultTest.moc"
