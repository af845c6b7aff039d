#include "RecordWatch.h"
#include "TestRegistry.h"

#include <QtTest>

using namespace std::chrono_literals;

class RecordWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeSilentOnlyWhenNothingCameForAWhile()
    {
        RecordWatch watch;
        const RecordWatch::Clock::time_point start{100s};
        watch.seen(start);
        QVERIFY(!watch.isSilent(start));
        QVERIFY(!watch.isSilent(start + 500ms));
        QVERIFY(watch.isSilent(start + 1300ms));
        watch.seen(start + 1300ms);
        QVERIFY(!watch.isSilent(start + 1400ms));
    }
};

ROOM_TEST_CLASS(RecordWatchTest)

#include "RecordWatchTest.moc"
