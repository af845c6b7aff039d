#include "TestClock.h"

#include "TestRegistry.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include <chrono>

using namespace std::chrono_literals;

class TestClockTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldLetATimerFireThatIsDueInAMinute()
    {
        QTimer timer;
        QSignalSpy fired(&timer, &QTimer::timeout);
        timer.setSingleShot(true);
        timer.start(60s);
        TestClock::advance(59s - 3s); // a coarse timer may fire a twentieth early
        QCOMPARE(fired.count(), 0);
        TestClock::advance(5s);
        QCOMPARE(fired.count(), 1);
    }

    void shouldLetARepeatedTimerFireAgainAndAgain()
    {
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        QSignalSpy fired(&timer, &QTimer::timeout);
        timer.start(100ms);
        TestClock::advance(1s);
        QVERIFY(fired.count() >= 9);
    }

    void shouldPutAllMonotonicClocksForward()
    {
        QElapsedTimer ofQt;
        ofQt.start();
        const auto before = std::chrono::steady_clock::now();
        TestClock::advance(10s);
        QVERIFY(ofQt.elapsed() >= 10000);
        QVERIFY(std::chrono::steady_clock::now() - before >= 10s);
    }
};

ROOM_TEST_CLASS(TestClockTest)

#include "TestClockTest.moc"
