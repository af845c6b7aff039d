#include "RemoteController.h"
#include "BenchIOManager.h"
#include "ControllerProcess.h"
#include "OddServer.h"
#include "Requester.h"
#include "TestRegistry.h"

#include <QtTest>

#include <array>
#include <chrono>

namespace
{

using Buffer = std::array<char, 1024>;
const QString loopback = QStringLiteral("127.0.0.1");

// For what answers, however busy the machine is, and for what never does.
constexpr std::chrono::milliseconds patience{60000};
constexpr std::chrono::milliseconds impatience{50};

class Recorder final : public Requester
{
public:
    int dataReceived(const char *kind, const char *record) override
    {
        m_nested = m_nested || (m_channel != nullptr && m_channel->isBusy());
        kinds << QString::fromLatin1(kind);
        records << QString::fromLatin1(record);
        return 0;
    }
    void requesterNotice() override {}
    void watch(BenchIOManager &channel) { m_channel = &channel; }
    bool cameInsideACall() const { return m_nested; }

    QStringList kinds;
    QStringList records;

private:
    BenchIOManager *m_channel = nullptr;
    bool m_nested = false;
};

} // namespace

class RemoteControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskTheControllerOfAnotherProcess();
    void shouldDeliverSubscribedRecordsBetweenTheCalls();
    void shouldServeTwoClientsAtOnce();
    void shouldReportARefusedConnection();
    void shouldReportWhatBroke_data();
    void shouldReportWhatBroke();
    void shouldDropByFramesWhatComesFasterThanItIsHandled();
    void shouldFailAtOnceWhileNotConnected();
    void shouldReconnectAfterTheServerWasKilled();
    void shouldRefuseAddressesOfAnotherForm();
    void shouldPassFaultsOfTheServerOn();
};

void RemoteControllerTest::shouldAskTheControllerOfAnotherProcess()
{
    ControllerProcess server;
    QVERIFY(server.start());
    RemoteController link(loopback, server.port());
    QVERIFY2(link.open(), qPrintable(link.failure()));
    BenchIOManager channel(link);
    Buffer answer{};
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QCOMPARE(channel.getParameter(answer.data(), "status active"), 0);
    QCOMPARE(answer.data(), "mea");
    QCOMPARE(channel.setParameter("tracking extra_scaling %.5f", 1.25), 0);
    double scaling = 0.0;
    QCOMPARE(channel.getParameterDouble(&scaling, "tracking extra_scaling"), 0);
    QCOMPARE(scaling, 1.25);
    QCOMPARE(channel.control("sim get counts"), std::string("sim get counts 4 1 1 1 6"));
}

void RemoteControllerTest::shouldDeliverSubscribedRecordsBetweenTheCalls()
{
    ControllerProcess server;
    QVERIFY(server.start());
    RemoteController link(loopback, server.port());
    QVERIFY(link.open());
    BenchIOManager channel(link);
    Recorder recorder;
    recorder.watch(channel);
    Buffer answer{};
    channel.addRequester("ts", &recorder);
    channel.addRequester("6dmt2", &recorder);
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    for (int i = 0; i < 200; ++i)
        QCOMPARE(channel.getParameter(answer.data(), "status active"), 0);
    QTRY_VERIFY(recorder.kinds.count(QStringLiteral("6dmt2")) > 5);
    QVERIFY(!recorder.cameInsideACall());
    QVERIFY(!recorder.kinds.contains(QStringLiteral("6d")));
    QVERIFY(recorder.records[0].startsWith(QStringLiteral("ts 360")));
    QVERIFY(recorder.records[1].startsWith(QStringLiteral("6dmt2 1 [0 1.000 4 2.500][")));
    channel.releaseRequester(&recorder);
    const int before = recorder.kinds.size();
    Recorder other;
    channel.addRequester("ts", &other);
    QTRY_VERIFY(other.kinds.size() > 5);
    channel.releaseRequester(&other);
    QCOMPARE(recorder.kinds.size(), before);
}

void RemoteControllerTest::shouldServeTwoClientsAtOnce()
{
    ControllerProcess server;
    QVERIFY(server.start());
    RemoteController first(loopback, server.port()), second(loopback, server.port());
    QVERIFY(first.open() && second.open());
    for (int i = 1; i <= 200; ++i) {
        const std::string number = std::to_string(i);
        QCOMPARE(first.ask("velmar2 set tracking extra_translation " + number + " 0 0").text,
                 std::string("velmar2 ok"));
        QCOMPARE(second.ask("velmar2 get tracking extra_translation").text,
                 "velmar2 get tracking extra_translation " + number + ".000 0.000 0.000");
    }
    QSignalSpy records(&second, &ControllerLink::recordsArrived);
    second.subscribe({"fr"});
    QCOMPARE(first.ask("velmar2 tracking start").text, std::string("velmar2 ok"));
    QTRY_VERIFY(records.count() > 2);
}

void RemoteControllerTest::shouldReportARefusedConnection()
{
    ControllerProcess server;
    QVERIFY(server.start());
    const quint16 port = server.port();
    server.kill();
    RemoteController link(loopback, port);
    QSignalSpy changes(&link, &ControllerLink::connectionChanged);
    QVERIFY(!link.open());
    QCOMPARE(link.failure(), QStringLiteral("Connection refused"));
    const LinkAnswer answer = link.ask("velmar2 get status active");
    QVERIFY(!answer.arrived);
    QCOMPARE(QString::fromStdString(answer.text),
             QStringLiteral("not connected to 127.0.0.1:%1 (Connection refused)").arg(port));
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toBool(), false);
}

void RemoteControllerTest::shouldReportWhatBroke_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("report");
    QTest::newRow("closed") << QByteArray("close") << QStringLiteral("the connection was lost");
    QTest::newRow("lost in mid answer")
        << QByteArray("part") << QStringLiteral("the connection was lost in the middle of an answer");
    QTest::newRow("silence") << QByteArray("silence") << QStringLiteral("no answer within 50 ms");
    QTest::newRow("garbage") << QByteArray("\x01\x02 what?")
                             << QStringLiteral("the answer is garbage: \x01\x02 what?");
    QTest::newRow("empty line") << QByteArray("") << QStringLiteral("the answer is garbage: ");
    QTest::newRow("no end") << QByteArray("flood") << QStringLiteral("the answer does not end");
}

void RemoteControllerTest::shouldReportWhatBroke()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, report);
    OddServer server({"velmar2 ok", "velmar2 ok", reply});
    RemoteController link(loopback, server.port());
    link.setTimeout(patience);
    link.setRetryPause(std::chrono::milliseconds(20));
    QVERIFY(link.open());
    BenchIOManager channel(link);
    QSignalSpy changes(&link, &ControllerLink::connectionChanged);
    Buffer answer{};
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    if (reply == "silence")
        link.setTimeout(impatience);
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 2);
    QCOMPARE(QString::fromLatin1(answer.data()), QStringLiteral("no answer: ") + report);
    link.setTimeout(patience);
    QTRY_VERIFY(link.isConnected());
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QTRY_VERIFY(changes.count() >= 3);
    QCOMPARE(changes[1][0].toBool(), false);
    QCOMPARE(changes.last()[1].toString(), QStringLiteral("Reconnected to 127.0.0.1:%1.").arg(server.port()));
}

void RemoteControllerTest::shouldDropByFramesWhatComesFasterThanItIsHandled()
{
    // GIVEN
    OddServer server({"velmar2 ok", "records"});
    RemoteController link(loopback, server.port());
    QVERIFY(link.open());
    long handled = 0;
    long dropped = 0;
    std::size_t largestFrame = 0;
    connect(&link, &ControllerLink::recordsArrived, this, [&](const std::vector<SimRecord> &records) {
        ++handled;
        largestFrame = std::max(largestFrame, records.size());
    });
    connect(&link, &ControllerLink::framesDropped, this, [&](long count) { dropped = count; });
    // WHEN
    QCOMPARE(link.ask("velmar2 tracking start").text, std::string("velmar2 ok"));
    // THEN
    QTRY_COMPARE_WITH_TIMEOUT(handled + dropped, long(OddServer::recordCount), 30000);
    QVERIFY(handled > 0);
    QVERIFY(dropped > 0);
    QCOMPARE(largestFrame, std::size_t(1));
    QVERIFY(link.isConnected());
}

void RemoteControllerTest::shouldFailAtOnceWhileNotConnected()
{
    OddServer server({"velmar2 ok", "close"});
    RemoteController link(loopback, server.port());
    // Who waited for anything would wait until the test is ended as one that hangs.
    link.setRetryPause(std::chrono::hours(1));
    link.setTimeout(std::chrono::hours(1));
    QVERIFY(link.open());
    QVERIFY(!link.ask("velmar2 get status active").arrived);
    for (int i = 0; i < 100; ++i)
        QVERIFY(!link.ask("velmar2 get status active").arrived);
}

void RemoteControllerTest::shouldReconnectAfterTheServerWasKilled()
{
    ControllerProcess server;
    QVERIFY(server.start());
    RemoteController link(loopback, server.port());
    link.setRetryPause(std::chrono::milliseconds(20));
    QVERIFY(link.open());
    BenchIOManager channel(link);
    Recorder recorder;
    channel.addRequester("fr", &recorder);
    QSignalSpy changes(&link, &ControllerLink::connectionChanged);
    Buffer answer{};
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QTRY_VERIFY(!recorder.records.isEmpty());
    server.kill();
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking stop"), 2);
    QVERIFY(QByteArray(answer.data()).startsWith("no answer: "));
    ControllerProcess again;
    QVERIFY(again.start(server.port()));
    QTRY_VERIFY(link.isConnected());
    QCOMPARE(channel.getParameter(answer.data(), "status active"), 0);
    QCOMPARE(answer.data(), "none");
    recorder.records.clear();
    QCOMPARE(channel.sendCommand(answer.data(), "velmar2 tracking start"), 0);
    QTRY_VERIFY(!recorder.records.isEmpty()); // the subscription was made again
    QVERIFY(changes.last()[1].toString().startsWith(QStringLiteral("Reconnected to ")));
}

void RemoteControllerTest::shouldRefuseAddressesOfAnotherForm()
{
    for (const char *text : {"", "host", "host:", ":80", "host:0", "host:65536", "host:port"})
        QVERIFY2(!RemoteController::parseAddress(QString::fromLatin1(text)), text);
    const auto plain = RemoteController::parseAddress(QStringLiteral("localhost:5210"));
    QCOMPARE(plain->first, QStringLiteral("localhost"));
    QCOMPARE(plain->second, quint16(5210));
    QCOMPARE(RemoteController::parseAddress(QStringLiteral("[::1]:80"))->first, QStringLiteral("::1"));
}

void RemoteControllerTest::shouldPassFaultsOfTheServerOn()
{
    ControllerProcess server;
    QVERIFY(server.start(
        0, {QStringLiteral("--fault"), QStringLiteral("sim fault fail 1 velmar2 tracking start 9"),
            QStringLiteral("--fault"), QStringLiteral("sim fault delay 1 velmar2 tracking stop 600000")}));
    RemoteController link(loopback, server.port());
    QVERIFY(link.open());
    QCOMPARE(link.ask("velmar2 tracking start").text, std::string("velmar2 err 9 \"fault on request\""));
    QCOMPARE(link.ask("velmar2 tracking start").text, std::string("velmar2 ok"));
    link.setTimeout(impatience);
    QCOMPARE(link.ask("velmar2 tracking stop").text, std::string("no answer within 50 ms"));
}

ROOM_TEST_CLASS(RemoteControllerTest)
#include "RemoteControllerTest.moc"
