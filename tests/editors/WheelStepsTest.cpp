#include "WheelSteps.h"

#include "TestRegistry.h"

#include <QtTest>

class WheelStepsTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldCountFromTheLastPlace()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.to(3.0), 3);
        QCOMPARE(wheel.to(10.0), 7);
        QCOMPARE(wheel.to(9.0), -1);
    }

    void shouldCountAcrossTheEndOfTheWheel()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.to(360.0), -1);
        QCOMPARE(wheel.to(2.0), 3);
    }

    void shouldTakeHalfAWheelForATurnWithinTheRange()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.to(180.0), 180);
        QCOMPARE(wheel.to(0.0), -180);
    }

    void shouldDropAPartOfAStep()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.to(1.9), 1);
        QCOMPARE(wheel.to(0.0), -1);
    }

    void shouldStartAnewWhereTheWheelWasSet()
    {
        WheelSteps wheel;
        QCOMPARE(wheel.to(50.0), 50);
        wheel.startFrom(0.0);
        QCOMPARE(wheel.to(1.0), 1);
    }
};

ROOM_TEST_CLASS(WheelStepsTest)
#include "WheelStepsTest.moc"
