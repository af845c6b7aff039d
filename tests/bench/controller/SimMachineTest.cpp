#include "SimMachine.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

/// A machine whose room calibration of five seconds is running.
SimMachine calibrating(const char *kind = "room")
{
    SimMachine machine;
    machine.state.activity = SimActivity::Calibrating;
    machine.state.roomCalibration.type = "angle_no_wand";
    machine.state.startedCoordinateType = "normal";
    machine.calibration.start(kind, 5.0);
    return machine;
}

} // namespace

class SimMachineTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferTheResultOfARoomCalibration()
    {
        // GIVEN
        SimMachine machine = calibrating();
        // WHEN, THEN
        machine.advance(4.0);
        QVERIFY(machine.state.activity == SimActivity::Calibrating);
        machine.advance(1.5);
        machine.advance(1.5);
        QVERIFY(machine.state.activity == SimActivity::None);
        QVERIFY(machine.state.newCalibration.has_value());
        QCOMPARE(machine.state.newCalibration->coordinateType, std::string("normal"));
        QCOMPARE(machine.state.seconds, 7.0);
    }

    void shouldOfferNothingAfterAnotherCalibration()
    {
        // GIVEN
        SimMachine machine = calibrating("reflex_scan");
        // WHEN
        for (int i = 0; i < 20; ++i)
            machine.advance(1.0);
        // THEN
        QVERIFY(machine.state.activity == SimActivity::None);
        QVERIFY(!machine.state.newCalibration);
    }

    void shouldKeepTheErrorOfAFailedCalibration()
    {
        // GIVEN
        SimMachine machine = calibrating();
        machine.room.angleTool.visible = false;
        // WHEN
        for (int i = 0; i < 20; ++i)
            machine.advance(1.0);
        // THEN
        QVERIFY(machine.state.activity == SimActivity::Error);
        QCOMPARE(machine.state.errorCode, 17);
        QCOMPARE(machine.state.errorText, std::string("Angle tool not found."));
    }

    void shouldLoseRunningWorkAtARestartAndKeepWhatIsStored()
    {
        // GIVEN
        SimMachine machine = calibrating();
        machine.state.extra.scaling = 1.5;
        machine.state.frameNumber = 9;
        machine.room.tools[0].measurement.start();
        // WHEN
        machine.restart();
        // THEN
        QVERIFY(machine.state.activity == SimActivity::None);
        QVERIFY(!machine.room.tools[0].measurement.isBusy());
        QCOMPARE(machine.state.frameNumber, 0U);
        QCOMPARE(machine.calibration.stepNumber(), 0);
        QCOMPARE(machine.state.extra.scaling, 1.5);
    }
};

ROOM_TEST_CLASS(SimMachineTest)
#include "SimMachineTest.moc"
