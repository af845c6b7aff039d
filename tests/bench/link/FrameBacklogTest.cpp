#include "FrameBacklog.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

void pushFrame(FrameBacklog &backlog, int number)
{
    for (const char *kind : {"fr", "ts", "6d"})
        backlog.push({kind, std::string(kind) + " " + std::to_string(number)});
}

QString asText(const std::vector<SimRecord> &frame)
{
    QStringList lines;
    for (const SimRecord &record : frame)
        lines << QString::fromStdString(record.line);
    return lines.join(QLatin1Char(','));
}

QStringList takeAll(FrameBacklog &backlog)
{
    QStringList frames;
    while (!backlog.isEmpty())
        frames << asText(backlog.take());
    return frames;
}

} // namespace

class FrameBacklogTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldGiveFrameByFrame()
    {
        FrameBacklog backlog;
        pushFrame(backlog, 1);
        pushFrame(backlog, 2);
        QCOMPARE(takeAll(backlog),
                 (QStringList{QStringLiteral("fr 1,ts 1,6d 1"), QStringLiteral("fr 2,ts 2,6d 2")}));
        QCOMPARE(backlog.droppedCount(), 0L);
    }

    void shouldDropTheOldestFramesAsAWhole()
    {
        FrameBacklog backlog;
        const int most = static_cast<int>(FrameBacklog::mostFrames);
        for (int i = 1; i <= most + 5; ++i)
            pushFrame(backlog, i);
        const QStringList frames = takeAll(backlog);
        QCOMPARE(frames.size(), most);
        QCOMPARE(frames.first(), QStringLiteral("fr 6,ts 6,6d 6"));
        QCOMPARE(frames.last(), QStringLiteral("fr %1,ts %1,6d %1").arg(most + 5));
        QCOMPARE(backlog.droppedCount(), 5L);
    }

    void shouldNotDropTheRestOfAFrameThatHasBeenBegun()
    {
        FrameBacklog backlog;
        backlog.push({"fr", "fr 0"});
        QCOMPARE(takeAll(backlog), QStringList{QStringLiteral("fr 0")});
        backlog.push({"ts", "ts 0"});
        for (int i = 1; i <= static_cast<int>(FrameBacklog::mostFrames); ++i)
            pushFrame(backlog, i);
        const QStringList frames = takeAll(backlog);
        QCOMPARE(frames.first(), QStringLiteral("ts 0"));
        QCOMPARE(frames.at(1), QStringLiteral("fr 2,ts 2,6d 2"));
        QCOMPARE(backlog.droppedCount(), 1L);
    }

    void shouldBoundTheBytesToo()
    {
        FrameBacklog backlog;
        const std::string large(FrameBacklog::mostBytes / 4, 'x');
        for (int i = 0; i < 10; ++i)
            backlog.push({"6d", large});
        QCOMPARE(takeAll(backlog).size(), 3);
        QCOMPARE(backlog.droppedCount(), 7L);
    }

    void shouldKeepTheNewestFrameHoweverLargeItIs()
    {
        FrameBacklog backlog;
        backlog.push({"fr", "fr 1"});
        backlog.push({"fr", std::string(FrameBacklog::mostBytes + 1, 'x')});
        QCOMPARE(takeAll(backlog).size(), 1);
        QCOMPARE(backlog.droppedCount(), 1L);
    }

    void shouldNotTakeEverNewKindsForOneFrame()
    {
        FrameBacklog backlog;
        for (std::size_t i = 0; i <= FrameBacklog::mostRecordsPerFrame; ++i)
            backlog.push({"kind" + std::to_string(i), "line"});
        QCOMPARE(backlog.take().size(), FrameBacklog::mostRecordsPerFrame);
        QCOMPARE(backlog.take().size(), std::size_t(1));
    }

    void shouldBeginAnewAfterClearing()
    {
        FrameBacklog backlog;
        backlog.push({"fr", "fr 1"});
        backlog.clear();
        QVERIFY(backlog.isEmpty());
        backlog.push({"ts", "ts 2"});
        QCOMPARE(takeAll(backlog), QStringList{QStringLiteral("ts 2")});
    }
};

ROOM_TEST_CLASS(FrameBacklogTest)
#include "FrameBacklogTest.moc"
