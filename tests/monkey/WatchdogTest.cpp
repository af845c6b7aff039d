#include "Watchdog.h"

#include "TestRegistry.h"

#include <QtTest>

#include <atomic>

using namespace std::chrono_literals;

class WatchdogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldTellWhatHappenedBeforeTheStand()
    {
        // GIVEN
        QStringList told;
        std::atomic<bool> hasBarked{false};
        Watchdog watchdog(20ms, [&](const QStringList &events) {
            told = events;
            hasBarked = true;
        });
        // WHEN
        for (int i = 1; i <= 30; ++i)
            watchdog.note(QString::number(i));
        // THEN
        QTRY_VERIFY(hasBarked);
        QCOMPARE(told.size(), 25);
        QCOMPARE(told.first(), QStringLiteral("6"));
        QCOMPARE(told.last(), QStringLiteral("30"));
    }

    void shouldBeQuietWhenItIsSentAway()
    {
        // GIVEN
        std::atomic<bool> hasBarked{false};
        {
            Watchdog watchdog(1h, [&](const QStringList &) { hasBarked = true; });
            // WHEN
            watchdog.note(QStringLiteral("the last"));
            QCOMPARE(watchdog.lastEvents(), QStringList{QStringLiteral("the last")});
        }
        // THEN
        QVERIFY(!hasBarked);
    }
};

ROOM_TEST_CLASS(WatchdogTest)

#include "WatchdogTest.moc"
