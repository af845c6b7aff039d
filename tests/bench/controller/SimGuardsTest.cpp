#include "SimGuards.h"
#include "SimArguments.h"
#include "SimMachine.h"
#include "TestRegistry.h"

#include <QtTest>

Q_DECLARE_METATYPE(SimGuard)

namespace
{

/// The number of the refusal, 0 for none, of a request for the calibration of that kind.
int refusal(const SimGuards &guards, const SimMachine &machine, std::string_view kind = "room")
{
    SimArguments arguments;
    arguments.words = {kind};
    const auto reply = SimGuarding::refusal(guards, machine, arguments);
    return reply ? reply->code : 0;
}

SimGuards all()
{
    return {SimGuard::KnownCalibration, SimGuard::Available,      SimGuard::NotCalibrating,
            SimGuard::NotMeasuring,     SimGuard::NewCalibration, SimGuard::Unlocked};
}

} // namespace

class SimGuardsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldRefuseWithTheNumberOfTheReason_data()
    {
        QTest::addColumn<SimGuard>("guard");
        QTest::addColumn<int>("code");
        QTest::newRow("not available") << SimGuard::Available << 11;
        QTest::newRow("measuring") << SimGuard::NotMeasuring << 21;
        QTest::newRow("nothing to accept") << SimGuard::NewCalibration << 31;
        QTest::newRow("locked") << SimGuard::Unlocked << 13;
        QTest::newRow("measuring and strict") << SimGuard::NotedMeasuring << 20;
        QTest::newRow("not calibrating") << SimGuard::NotCalibrating << 0;
        QTest::newRow("a known kind") << SimGuard::KnownCalibration << 0;
    }
    void shouldRefuseWithTheNumberOfTheReason()
    {
        // GIVEN
        QFETCH(SimGuard, guard);
        QFETCH(int, code);
        SimMachine machine;
        machine.state.available = false;
        machine.state.changeable = false;
        machine.state.strict = true;
        machine.state.activity = SimActivity::Measuring;
        // WHEN, THEN
        QCOMPARE(refusal({guard}, machine), code);
    }

    void shouldRefuseNothingWhenNothingStandsInTheWay()
    {
        // GIVEN
        SimMachine machine;
        machine.state.newCalibration = SimNewCalibration();
        // WHEN, THEN
        QCOMPARE(refusal(all(), machine), 0);
        QCOMPARE(refusal({}, machine), 0);
    }

    void shouldGiveTheFirstReasonOfSeveral()
    {
        // GIVEN
        SimMachine machine;
        machine.state.changeable = false;
        machine.state.available = false;
        machine.state.activity = SimActivity::Calibrating;
        // WHEN, THEN
        QCOMPARE(refusal(all(), machine, "no_such_kind"), 4);
        QCOMPARE(refusal(all(), machine), 11);
        machine.state.available = true;
        QCOMPARE(refusal(all(), machine), 12);
        machine.state.activity = SimActivity::None;
        QCOMPARE(refusal(all(), machine), 31);
        machine.state.newCalibration = SimNewCalibration();
        QCOMPARE(refusal(all(), machine), 13);
    }

    void shouldNoteOnlyWhatIsGuardedAndDoneWhileMeasuring()
    {
        // GIVEN
        SimMachine machine;
        const SimGuards noted = {SimGuard::Unlocked, SimGuard::NotedMeasuring};
        // WHEN, THEN
        QVERIFY(!SimGuarding::isNoted(noted, machine));
        machine.state.activity = SimActivity::Measuring;
        QVERIFY(SimGuarding::isNoted(noted, machine));
        QVERIFY(!SimGuarding::isNoted({SimGuard::Unlocked}, machine));
        QCOMPARE(refusal(noted, machine), 0);
    }
};

ROOM_TEST_CLASS(SimGuardsTest)
#include "SimGuardsTest.moc"
