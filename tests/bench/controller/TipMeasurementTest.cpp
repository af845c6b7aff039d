#include "TipMeasurement.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

constexpr double rate = 60.0;

/// How many frames are marked until one is not; the tip moves so far along x from frame to frame.
int markedFrames(TipMeasurement &measurement, const TipMeasurement::Rules &rules, double stepMm)
{
    int marked = 0;
    for (SimVector tip; marked < 1000; tip.x += stepMm) {
        measurement.frame(tip, true, rules, rate);
        if (!measurement.isRunning())
            break;
        ++marked;
    }
    return marked;
}

} // namespace

class TipMeasurementTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldMarkItsDurationAndTwoFrames_data()
    {
        QTest::addColumn<double>("durationSeconds");
        QTest::addColumn<int>("frames");
        QTest::newRow("a second") << 1.0 << 62;
        QTest::newRow("no whole frame") << 0.51 << 33;
        QTest::newRow("nothing") << 0.0 << 2;
    }
    void shouldMarkItsDurationAndTwoFrames()
    {
        // GIVEN
        QFETCH(double, durationSeconds);
        QFETCH(int, frames);
        TipMeasurement measurement;
        measurement.start();
        QVERIFY(measurement.isBusy());
        QVERIFY(!measurement.isRunning());
        // WHEN, THEN
        QCOMPARE(markedFrames(measurement, {durationSeconds, 1.5, true}, 0.0), frames);
        QVERIFY(!measurement.isBusy());
    }

    void shouldEndEarlyWhenTheTipMovesTooMuch()
    {
        // GIVEN
        TipMeasurement measurement;
        measurement.start();
        // WHEN, THEN
        QCOMPARE(markedFrames(measurement, {1.0, 1.5, true}, 4.0), 2); // 0 and 4: 2 mm from their mean
        measurement.start();
        QCOMPARE(markedFrames(measurement, {1.0, 2.0, true}, 4.0), 3); // as much as is allowed, then more
        measurement.start();
        QCOMPARE(markedFrames(measurement, {1.0, 1.5, false}, 4.0), 62);
    }

    void shouldEndWhenTheToolIsLost()
    {
        // GIVEN
        TipMeasurement measurement;
        measurement.start();
        measurement.frame({}, true, {}, rate);
        QVERIFY(measurement.isRunning());
        // WHEN
        measurement.frame({}, false, {}, rate);
        // THEN
        QVERIFY(!measurement.isBusy());
    }

    void shouldIgnoreASecondStartAndEndWhenDropped()
    {
        // GIVEN
        TipMeasurement measurement;
        measurement.start();
        measurement.frame({}, true, {}, rate);
        // WHEN
        measurement.start();
        // THEN
        QCOMPARE(markedFrames(measurement, {}, 0.0), 61);
        measurement.start();
        measurement.drop();
        QVERIFY(!measurement.isBusy());
    }
};

ROOM_TEST_CLASS(TipMeasurementTest)
#include "TipMeasurementTest.moc"
