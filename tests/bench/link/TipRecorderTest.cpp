#include "TipRecorder.h"

#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"
#include "TestRegistry.h"

#include <QtTest>

#include <memory>

namespace
{

/// A controller whose time stands still, and the host's channel.
struct TipBench {
    TipBench() { channel.control("sim clock stepped"); }

    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
};

} // namespace

class TipRecorderTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAverageTheTipOfItsTool()
    {
        // GIVEN
        TipBench bench;
        TipRecorder recorder(bench.channel, 2);
        // WHEN
        recorder.dataReceived("6dmt", "6dmt 2 [0 1.000 0][9 9 9][1 0 0 0 1 0 0 0 1] "
                                      "[1 1.000 0][1 2 3][1 0 0 0 1 0 0 0 1]");
        recorder.dataReceived("6dmt", "6dmt 2 [0 1.000 0][9 9 9][1 0 0 0 1 0 0 0 1] "
                                      "[1 1.000 0][3 2 5][1 0 0 0 1 0 0 0 1]");
        // THEN
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(recorder.mean().x, 2.0);
        QCOMPARE(recorder.mean().z, 4.0);
    }

    void shouldCountOnlyFramesWithTheTool_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("lost") << QByteArray("6dmt 1 [0 -1.000 0][0 0 0][0 0 0 0 0 0 0 0 0]");
        QTest::newRow("not there") << QByteArray("6dmt 0");
        QTest::newRow("cut off") << QByteArray("6dmt 1 [0 1.000 0][1 2");
        QTest::newRow("no numbers") << QByteArray("6dmt 1 [0 1.000 0][x y z][1 0 0 0 1 0 0 0 1]");
    }
    void shouldCountOnlyFramesWithTheTool()
    {
        // GIVEN
        QFETCH(QByteArray, record);
        TipBench bench;
        TipRecorder recorder(bench.channel, 1);
        // WHEN
        recorder.dataReceived("6dmt", record.constData());
        // THEN
        QCOMPARE(recorder.count(), 0);
    }

    void shouldListenToOneFormatAsLongAsItLives()
    {
        // GIVEN
        TipBench bench;
        std::array<char, 1024> answer{};
        QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
        auto recorder = std::make_unique<TipRecorder>(bench.channel, 1);
        // WHEN
        bench.link.frame();
        bench.link.frame();
        // THEN
        QCOMPARE(recorder->count(), 2); // both formats come in each frame
        recorder.reset();
        QCOMPARE(int(bench.channel.subscriptionCount()), 0);
    }
};

ROOM_TEST_CLASS(TipRecorderTest)
#include "TipRecorderTest.moc"
