#include "BenchIOManager.h"
#include "LocalController.h"
#include "Requester.h"
#include "SimController.h"
#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

#include <array>

namespace
{

using Buffer = std::array<char, 1024>;

/// A controller whose time stands still, its link and the host's channel.
struct Bench {
    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};

    Bench() { control("sim clock stepped"); }

    void control(const char *line) { QCOMPARE(channel.control(line), std::string("sim ok")); }

    void measure()
    {
        Buffer answer{};
        QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    }
};

class Recorder final : public Requester
{
public:
    int dataReceived(const char *kind, const char *record) override
    {
        kinds << QString::fromLatin1(kind);
        records << QString::fromLatin1(record);
        return 0;
    }
    void requesterNotice() override {}

    QStringList kinds;
    QStringList records;
};

} // namespace

class BenchIOManagerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSendCommandsAndHandTheAnswerLineOver();
    void shouldReadEveryTypeOfValue();
    void shouldLeaveNumbersAloneAfterAFailure();
    void shouldFillFormatsInWithADecimalPoint();
    void shouldLogEveryCall();
    void shouldDeliverOnlySubscribedKinds();
    void shouldStopDeliveringWhenReleased();
    void shouldFailTheKthCall();
    void shouldReturnFailureThoughItWasDone();
    void shouldGiveAForcedAnswer();
    void shouldCutLongAnswers();
    void shouldFailEverythingWhileDisconnected();
    void shouldDeliverRecordsInsideADelayWithEvents();
    void shouldDeliverKindsWithATrailingBlank();
    void shouldSaveTheWorkpiece();
};

void BenchIOManagerTest::shouldSendCommandsAndHandTheAnswerLineOver()
{
    Bench bench;
    Buffer answer{};
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QCOMPARE(answer.data(), "velmar2 ok");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 cal %s start", "room"), 1);
    QCOMPARE(answer.data(), "velmar2 err 21 \"tracking is running\"");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 get camera camera c%02d", 2), 0);
    QCOMPARE(answer.data(), "velmar2 get camera camera c02 sim 00031 active");
}

void BenchIOManagerTest::shouldReadEveryTypeOfValue()
{
    Bench bench;
    Buffer text{};
    int whole = 0;
    double real = 0.0;
    bool truth = false;
    std::array<double, 3> three{};
    QCOMPARE(bench.channel.getParameter(text.data(), "status active"), 0);
    QCOMPARE(text.data(), "none");
    QCOMPARE(bench.channel.getParameterInt(&whole, "camera number_of_cameras"), 0);
    QCOMPARE(whole, 4);
    QCOMPARE(bench.channel.getParameterDouble(&real, "roomcal duration"), 0);
    QCOMPARE(real, 30.0);
    QCOMPARE(bench.channel.getParameterBool(&truth, "tracking has_room c%02d", 1), 0);
    QVERIFY(truth);
    QCOMPARE(bench.channel.getParameterDoubles(three.data(), 3, "roomcal angle"), 0);
    QCOMPARE(three, (std::array<double, 3>{278.0, 83.0, 163.0}));
}

void BenchIOManagerTest::shouldLeaveNumbersAloneAfterAFailure()
{
    Bench bench;
    Buffer text{};
    int whole = -5;
    double real = -5.0;
    bool truth = true;
    std::array<double, 9> nine{-5.0};
    QCOMPARE(bench.channel.getParameter(text.data(), "status speed"), 1);
    QCOMPARE(text.data(), "velmar2 err 2 \"unknown parameter\"");
    QCOMPARE(bench.channel.getParameterInt(&whole, "status active"), 1);
    QCOMPARE(bench.channel.getParameterDouble(&real, "status active"), 1);
    QCOMPARE(bench.channel.getParameterBool(&truth, "status active"), 1);
    QCOMPARE(bench.channel.getParameterDoubles(nine.data(), 9, "roomcal angle"), 1);
    QCOMPARE(whole, -5);
    QCOMPARE(real, -5.0);
    QVERIFY(truth);
    QCOMPARE(nine[0], -5.0);
}

void BenchIOManagerTest::shouldFillFormatsInWithADecimalPoint()
{
    Bench bench;
    Buffer text{};
    QCOMPARE(bench.channel.setParameter("tracking extra_translation %.3f %.3f %.3f", 1.5, -2.25, 1000.125),
             0);
    QCOMPARE(bench.channel.getParameter(text.data(), "tracking extra_translation"), 0);
    QCOMPARE(text.data(), "1.500 -2.250 1000.125");
    QCOMPARE(bench.channel.setParameter("tracking extra_scaling %.5f", -1.0), 1);
}

void BenchIOManagerTest::shouldLogEveryCall()
{
    Bench bench;
    bench.channel.log().clear();
    QSignalSpy called(&bench.channel, &BenchIOManager::called);
    QSignalSpy reported(&bench.channel, &BenchIOManager::errorReported);
    bench.link.advance(1.5);
    bench.channel.setParameter("roomcal duration %.1f", 0.5);
    bench.channel.reportError("standard", "VELMAR3", 1, "Error: one");
    QCOMPARE(called.count(), 2);
    QCOMPARE(reported.count(), 1);
    QCOMPARE(reported[0][3].toString(), QStringLiteral("Error: one"));
    QCOMPARE(CallLog::asText(bench.channel.log().calls()[0]),
             QStringLiteral("2\t1.500\tsetParameter\troomcal duration 0.5\t1\tvelmar2 err 3 \"bad value\""));
    QCOMPARE(bench.channel.log().calls()[1].operation, std::string("reportError"));
    QCOMPARE(bench.channel.log().rowCount(), 2);
}

void BenchIOManagerTest::shouldDeliverOnlySubscribedKinds()
{
    Bench bench;
    Recorder recorder;
    bench.measure();
    for (const char *kind : {"6d", "ts", "ts"})
        bench.channel.addRequester(kind, &recorder);
    QCOMPARE(bench.channel.subscriptionCount(), std::size_t(2));
    bench.link.frame();
    QCOMPARE(recorder.kinds, (QStringList{QStringLiteral("ts"), QStringLiteral("6d")}));
    QCOMPARE(recorder.records[0], QStringLiteral("ts 36000.016667"));
    bench.channel.removeRequester("ts", &recorder);
    bench.link.frame();
    QCOMPARE(recorder.kinds.mid(2), QStringList{QStringLiteral("6d")});
}

void BenchIOManagerTest::shouldStopDeliveringWhenReleased()
{
    Bench bench;
    Recorder recorder;
    bench.measure();
    bench.channel.addRequester("ts", &recorder);
    bench.channel.addRequester("6d", &recorder);
    bench.channel.releaseRequester(&recorder);
    bench.link.frame();
    QVERIFY(recorder.kinds.isEmpty());
    QCOMPARE(bench.channel.subscriptionCount(), std::size_t(0));
}

void BenchIOManagerTest::shouldFailTheKthCall()
{
    Bench bench;
    Buffer answer{};
    bench.control("sim fault fail 2 velmar2 tracking start -1");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    bench.channel.sendCommand(answer.data(), "velmar2 tracking stop");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), -1);
    QCOMPARE(bench.channel.getParameter(answer.data(), "status active"), 0);
    QCOMPARE(answer.data(), "none");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
}

void BenchIOManagerTest::shouldReturnFailureThoughItWasDone()
{
    Bench bench;
    Buffer answer{};
    bench.control("sim fault done-but-fail every tracking extra_scaling");
    QCOMPARE(bench.channel.setParameter("tracking extra_scaling %.5f", 2.0), 7);
    bench.control("sim fault clear");
    QCOMPARE(bench.channel.getParameter(answer.data(), "tracking extra_scaling"), 0);
    QCOMPARE(answer.data(), "2.00000");
}

void BenchIOManagerTest::shouldGiveAForcedAnswer()
{
    Bench bench;
    Buffer answer{};
    bench.control("sim fault answer 1 tracking available = no ");
    QCOMPARE(bench.channel.getParameter(answer.data(), "tracking available"), 0);
    QCOMPARE(answer.data(), "no ");
    bench.control("sim fault answer 1 velmar2 tracking start =");
    QCOMPARE(bench.channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QCOMPARE(answer.data(), "");
    bench.control("sim fault answer 1 tracking extra_scaling = 1,5");
    double scaling = 3.0;
    QCOMPARE(bench.channel.getParameterDouble(&scaling, "tracking extra_scaling"), 1);
    QCOMPARE(scaling, 3.0);
}

void BenchIOManagerTest::shouldCutLongAnswers()
{
    Bench bench;
    Buffer answer{};
    answer.fill('?');
    bench.control("sim fault long 1 status active 1000");
    QCOMPARE(bench.channel.getParameter(answer.data(), "status active"), 0);
    QCOMPARE(answer.data(), std::string(199, 'x').c_str());
    QCOMPARE(answer[200], '?');
}

void BenchIOManagerTest::shouldFailEverythingWhileDisconnected()
{
    Bench bench;
    Recorder recorder;
    Buffer answer{};
    bench.measure();
    bench.channel.addRequester("ts", &recorder);
    bench.control("sim fault disconnect 1");
    QCOMPARE(bench.channel.getParameter(answer.data(), "status active"), 2);
    bench.link.frame();
    QVERIFY(recorder.kinds.isEmpty());
    bench.link.advance(1.0);
    QCOMPARE(bench.channel.getParameter(answer.data(), "status active"), 0);
    bench.control("sim fault disconnect");
    QCOMPARE(bench.channel.setParameter("roomcal duration 5.0"), 2);
    bench.control("sim reconnect");
    QCOMPARE(bench.channel.setParameter("roomcal duration 5.0"), 0);
}

void BenchIOManagerTest::shouldDeliverRecordsInsideADelayWithEvents()
{
    Bench bench;
    Recorder recorder;
    Buffer answer{};
    bench.measure();
    bench.channel.addRequester("ts", &recorder);
    bench.control("sim fault delay 1 status active 30 events");
    QTimer::singleShot(0, &bench.link, [&bench] { bench.link.frame(); });
    QCOMPARE(bench.channel.getParameter(answer.data(), "status active"), 0);
    QCOMPARE(recorder.kinds.size(), 1);
}

void BenchIOManagerTest::shouldDeliverKindsWithATrailingBlank()
{
    Bench bench;
    Recorder recorder;
    bench.measure();
    bench.channel.addRequester("6dmt", &recorder);
    bench.control("sim record blank-kind on");
    bench.link.frame();
    QCOMPARE(recorder.kinds, QStringList{QStringLiteral("6dmt ")});
}

void BenchIOManagerTest::shouldSaveTheWorkpiece()
{
    Bench bench;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("points.txt"));
    bench.control(("sim object save " + file.toStdString()).c_str());
    QFile saved(file);
    QVERIFY(saved.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = saved.readAll().split('\n');
    QCOMPARE(lines.size(), 7);
    QCOMPARE(lines[1], QByteArray("2 620.000 0.000 0.000"));
    QVERIFY(bench.channel.control("sim object save /nowhere/points.txt").find("sim err") == 0);
}

ROOM_TEST_CLASS(BenchIOManagerTest)
#include "BenchIOManagerTest.moc"
