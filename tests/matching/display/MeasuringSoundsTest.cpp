#include "MeasuringSounds.h"

#include "TestClock.h"
#include "TestRegistry.h"

#include <QtTest>

using namespace std::chrono_literals;

class MeasuringSoundsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { MeasuringSounds::turnOn(true); }

    void shouldSignalOnceForAPointAndTwiceForAFailure()
    {
        MeasuringSounds sounds;
        const QSignalSpy beeps(&sounds, &MeasuringSounds::beep);
        sounds.pointTaken();
        TestClock::advance(2s);
        QCOMPARE(beeps.count(), 1);
        sounds.measurementFailed();
        QCOMPARE(beeps.count(), 2);
        TestClock::advance(2s);
        QCOMPARE(beeps.count(), 3);
    }

    void shouldNotTakeAPointForAFailure()
    {
        MeasuringSounds sounds;
        const QSignalSpy beeps(&sounds, &MeasuringSounds::beep);
        sounds.measurementFailed();
        sounds.pointTaken();
        TestClock::advance(2s);
        QCOMPARE(beeps.count(), 2);
    }

    void shouldStaySilentWhenTurnedOff()
    {
        MeasuringSounds sounds;
        const QSignalSpy beeps(&sounds, &MeasuringSounds::beep);
        sounds.measurementFailed();
        MeasuringSounds::turnOn(false);
        sounds.pointTaken();
        sounds.measurementFailed();
        TestClock::advance(2s);
        QCOMPARE(beeps.count(), 1);
    }

    void shouldRememberForTheNextWindowThatItIsOff()
    {
        QVERIFY(MeasuringSounds::areOn());
        MeasuringSounds::turnOn(false);
        MeasuringSounds next;
        const QSignalSpy beeps(&next, &MeasuringSounds::beep);
        next.pointTaken();
        QVERIFY(!MeasuringSounds::areOn());
        QCOMPARE(beeps.count(), 0);
    }
};

ROOM_TEST_CLASS(MeasuringSoundsTest)

#include "MeasuringSoundsTest.moc"
