#include "SimMachine.h"

#include "TestRegistry.h"

#include <QtTest>

#include <algorithm>

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
    void shouldBeginInPerfectOrder()
    {
        // GIVEN
        const SimMachine machine;
        const SimState &state = machine.state;
        const SimRoom &room = machine.room;
        // THEN
        QVERIFY(state.activity == SimActivity::None && state.clock == SimClock::Real);
        QVERIFY(state.available && state.changeable && state.angleToolSupported && !state.strict);
        QVERIFY(!state.reference && !state.newCalibration);
        QCOMPARE(state.errorCode, 0);
        QCOMPARE(state.frameNumber, 0U);
        QCOMPARE((QList<double>{state.seconds, state.extra.scaling}), (QList<double>{0.0, 1.0}));
        for (const SimCamera &camera : room.cameras)
            QVERIFY(camera.hasRoom && camera.progressRate == 1.0);
        const SimTool &tool = room.tools.at(0);
        QVERIFY(tool.tracked && tool.tipCalibrated && tool.toleranceCheck && !tool.measurement.isBusy());
        QCOMPARE((QList<double>{tool.speedMm, tool.tremorMm, tool.durationSeconds}),
                 (QList<double>{0.0, 0.0, 1.0}));
        const SimDevice &device = room.devices.at(0);
        QVERIFY(device.tracked && device.joystick == (std::vector<double>{0.0, 0.0}));
        QCOMPARE(device.buttons.size(), std::size_t(4));
        QVERIFY(std::none_of(device.buttons.begin(), device.buttons.end(),
                             [](const SimButton &one) { return one.isDown(); }));
        QVERIFY(std::none_of(tool.buttons.begin(), tool.buttons.end(),
                             [](const SimButton &one) { return one.isDown(); }));
        QVERIFY(room.bodies.at(0).tracked && room.angleTool.visible);
    }

    void shouldBeginACalibrationKindWithoutTrouble()
    {
        for (const auto &[name, kind] : SimMachine().calibration.kinds) {
            QCOMPARE(kind.steps.size(), std::size_t(1));
            QVERIFY(!kind.steps[0].pauseAnnounced && kind.curve.empty() && !kind.errorFraction);
            QCOMPARE((QList<double>{kind.steps[0].pauseSeconds, kind.stallFraction, kind.stallSeconds,
                                    kind.afterWorkSeconds}),
                     (QList<double>{0.0, 0.0, 0.0, 1.0}));
        }
    }

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
