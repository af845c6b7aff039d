#include "SimCoordinates.h"

#include "SimMachine.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>

namespace
{

bool isNear(const SimVector &a, const SimVector &b)
{
    return length(a - b) < 1e-9;
}

} // namespace

class SimCoordinatesTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReportWorldCoordinatesAtFirst()
    {
        // GIVEN
        const SimMachine machine;
        const SimCoordinates coordinates(machine);
        // WHEN, THEN
        QVERIFY(isNear(coordinates.reported(SimVector{1, 2, 3}), {1, 2, 3}));
        QVERIFY(coordinates.isTracking());
    }

    void shouldTurnByTheTransposedRotationThenScaleThenShift()
    {
        // GIVEN
        SimMachine machine;
        machine.state.base.position = {100, 0, 0};
        machine.state.extra.rotation = SimRotation::fromDegrees(0, 0, 90);
        machine.state.extra.scaling = 2.0;
        machine.state.extra.translation = {0, 0, 7};
        // WHEN
        const SimVector here = SimCoordinates(machine).current(SimVector{1, 2, 3});
        // THEN
        QVERIFY(isNear(here, {4, -202, 13})); // (101, 2, 3) becomes (2, -101, 3)
    }

    void shouldReportRelativeToTheReference()
    {
        // GIVEN
        SimMachine machine;
        machine.room.bodies.resize(1);
        machine.room.bodies[0].pose = {{10, 0, 0}, SimRotation::fromDegrees(0, 0, 90)};
        machine.state.reference = 0;
        // WHEN
        const SimCoordinates coordinates(machine);
        // THEN
        QVERIFY(isNear(coordinates.reported(SimVector{10, 5, 0}), {5, 0, 0}));
        QVERIFY(isNear(coordinates.current(SimVector{10, 5, 0}), {10, 5, 0}));
    }

    void shouldTrackNothingWithoutTheReference()
    {
        // GIVEN
        SimMachine machine;
        machine.room.bodies.resize(1);
        machine.room.bodies[0].tracked = false;
        machine.state.reference = 0;
        // WHEN, THEN
        QVERIFY(!SimCoordinates(machine).isTracking());
    }
};

ROOM_TEST_CLASS(SimCoordinatesTest)
#include "SimCoordinatesTest.moc"
