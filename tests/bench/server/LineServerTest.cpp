#include "BuiltFiles.h"
#include "ControllerProcess.h"
#include "TestLoad.h"
#include "TestRegistry.h"

#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>
#include <random>

#include <sys/stat.h>

namespace
{

constexpr int patienceMs = 60000; // of who waits for a server that works

class Client
{
public:
    explicit Client(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_socket.waitForConnected(patienceMs);
    }
    void send(const QByteArray &bytes)
    {
        m_socket.write(bytes);
        m_socket.flush();
    }
    QByteArray line()
    {
        while (!m_socket.canReadLine()) {
            if (!m_socket.waitForReadyRead(patienceMs))
                return "nothing came";
        }
        return m_socket.readLine().trimmed();
    }
    QByteArray ask(const QByteArray &request)
    {
        send(request + "\n");
        return line();
    }
    QTcpSocket &socket() { return m_socket; }

private:
    QTcpSocket m_socket;
};

/// Whether a new client is answered in the end; until the server has noticed that others have left, it
/// refuses.
bool isServed(quint16 port)
{
    return QTest::qWaitFor([port] { return Client(port).ask("sim get clock") == "sim get clock real"; },
                           patienceMs);
}

} // namespace

class LineServerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerLineByLine();
    void shouldRefuseAndSkipALineThatIsTooLong();
    void shouldBoundTheConnections();
    void shouldLetTheIdlestGoWhenAnotherWaits();
    void shouldKeepWhoSentALineWithinTheIdleTime();
    void shouldLetHundredsWaitAtTheDoor();
    void shouldOutliveRandomBytes();
    void shouldOutliveAClientThatNeverReads();
    void shouldRefuseControlLinesOnRequest();
    void shouldStrikeWithTheFaultsOfAScenario();
    void shouldCloseEveryConnectionOnADisconnection();
    void shouldRefuseToStartWithAPipeAsTheScenario();
    void shouldRefuseToStartWithBadArguments_data();
    void shouldRefuseToStartWithBadArguments();
};

void LineServerTest::shouldAnswerLineByLine()
{
    ControllerProcess server;
    QVERIFY(server.start());
    Client client(server.port());
    client.send("velmar2 get status active\r\nvelmar2 tracking start\nvelmar2 get sta");
    QCOMPARE(client.line(), QByteArray("velmar2 get status active none"));
    QCOMPARE(client.line(), QByteArray("velmar2 ok"));
    client.send("tus active\n");
    QCOMPARE(client.line(), QByteArray("velmar2 get status active mea"));
    QCOMPARE(client.ask("velmar2 subscribe fr"), QByteArray("velmar2 ok"));
    QCOMPARE(client.line().left(13), QByteArray("record fr fr "));
}

void LineServerTest::shouldRefuseAndSkipALineThatIsTooLong()
{
    ControllerProcess server;
    QVERIFY(server.start());
    Client client(server.port());
    client.send(QByteArray(5000000, 'x') + "\nvelmar2 get status active\n");
    QCOMPARE(client.line(), QByteArray("velmar2 err 6 \"line too long\""));
    QCOMPARE(client.line(), QByteArray("velmar2 get status active none"));
}

void LineServerTest::shouldBoundTheConnections()
{
    ControllerProcess server;
    QVERIFY(server.start(0, {QStringLiteral("--connections"), QStringLiteral("3")}));
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < 3; ++i) {
        clients.push_back(std::make_unique<Client>(server.port()));
        QCOMPARE(clients.back()->ask("velmar2 get status active"),
                 QByteArray("velmar2 get status active none"));
    }
    for (int i = 0; i < 50; ++i) {
        Client another(server.port());
        QCOMPARE(another.line(), QByteArray("velmar2 err 50 \"too many connections\""));
        QVERIFY(another.socket().state() == QAbstractSocket::UnconnectedState ||
                another.socket().waitForDisconnected(patienceMs));
    }
    clients.pop_back();
    QVERIFY(isServed(server.port()));
}

void LineServerTest::shouldLetTheIdlestGoWhenAnotherWaits()
{
    // GIVEN
    ControllerProcess server;
    QVERIFY(server.start(0, {QStringLiteral("--connections"), QStringLiteral("2"), QStringLiteral("--idle"),
                             QStringLiteral("0")}));
    const QByteArray question = "velmar2 get status active";
    const QByteArray answer = "velmar2 get status active none";
    Client first(server.port()), second(server.port());
    QCOMPARE(first.ask(question), answer);
    QCOMPARE(second.ask(question), answer);
    QTest::qSleep(2); // the idle time counts milliseconds
    QCOMPARE(first.ask(question), answer);
    const QByteArray port = QByteArray::number(second.socket().localPort());
    // WHEN
    Client third(server.port());
    // THEN
    QCOMPARE(third.ask(question), answer);
    QCOMPARE(first.ask(question), answer);
    QCOMPARE(second.line(), QByteArray("velmar2 err 51 \"idle while others wait\""));
    QVERIFY(second.socket().state() == QAbstractSocket::UnconnectedState ||
            second.socket().waitForDisconnected(patienceMs));
    const QByteArray note = "127.0.0.1:" + port + " has sent nothing for 0 s and has been let go";
    server.process().setReadChannel(QProcess::StandardError);
    QVERIFY(server.process().bytesAvailable() > 0 || server.process().waitForReadyRead(patienceMs));
    const QByteArray said = server.process().readLine();
    QVERIFY2(said.contains(note), said.constData());
}

void LineServerTest::shouldKeepWhoSentALineWithinTheIdleTime()
{
    ControllerProcess server;
    QVERIFY(server.start(0, {QStringLiteral("--connections"), QStringLiteral("1"), QStringLiteral("--idle"),
                             QStringLiteral("3600")}));
    Client first(server.port());
    QCOMPARE(first.ask("velmar2 tracking start"), QByteArray("velmar2 ok"));
    Client second(server.port());
    QCOMPARE(second.line(), QByteArray("velmar2 err 50 \"too many connections\""));
    QCOMPARE(first.ask("velmar2 get status active"), QByteArray("velmar2 get status active mea"));
}

void LineServerTest::shouldLetHundredsWaitAtTheDoor()
{
    // GIVEN a server that does not get round to accepting
    ControllerProcess server;
    QVERIFY(server.start());
    const auto process = static_cast<pid_t>(server.process().processId());
    QCOMPARE(::kill(process, SIGSTOP), 0);
    // WHEN
    constexpr int many = 300;
    std::vector<std::unique_ptr<Client>> clients;
    int connected = 0;
    for (int i = 0; i < many && connected == i; ++i) {
        clients.push_back(std::make_unique<Client>(server.port()));
        connected += clients.back()->socket().state() == QAbstractSocket::ConnectedState ? 1 : 0;
    }
    ::kill(process, SIGCONT);
    // THEN
    QCOMPARE(connected, many);
    QCOMPARE(clients.back()->line(), QByteArray("velmar2 err 50 \"too many connections\""));
    QCOMPARE(clients.front()->ask("sim get clock"), QByteArray("sim get clock real"));
}

void LineServerTest::shouldOutliveRandomBytes()
{
    ControllerProcess server;
    QVERIFY(server.start());
    std::mt19937 engine(99);
    for (int round = 0; round < 20; ++round) {
        Client client(server.port());
        QByteArray bytes(20000, '\0');
        for (char &byte : bytes)
            byte = static_cast<char>(engine() % 256);
        client.send(bytes);
        client.socket().waitForBytesWritten(1000);
        client.socket().abort();
    }
    QVERIFY(isServed(server.port()));
    QCOMPARE(server.process().state(), QProcess::Running);
}

void LineServerTest::shouldOutliveAClientThatNeverReads()
{
    ControllerProcess server;
    QVERIFY(server.start());
    Client greedy(server.port());
    greedy.socket().setReadBufferSize(1);
    const QByteArray requests = QByteArray("velmar2 get tracking room c01\n").repeated(40000);
    greedy.send("velmar2 tracking start\nvelmar2 subscribe fr ts 6d 6dmt2 6df2\n" + requests);
    Client other(server.port());
    QCOMPARE(other.ask("velmar2 get status active"), QByteArray("velmar2 get status active mea"));
    QCOMPARE(other.ask("sim clock stepped"), QByteArray("sim ok"));
    for (int minutes = 0; minutes < 30; minutes += 10)
        QCOMPARE(other.ask("sim wait 600"), QByteArray("sim ok")); // with the records of all that time
    if (TestLoad::isSanitized())
        return; // what is freed is held back
    QFile status(QStringLiteral("/proc/%1/statm").arg(server.process().processId()));
    QVERIFY(status.open(QIODevice::ReadOnly));
    const qint64 residentPages = status.readAll().split(' ').value(1).toLongLong();
    QVERIFY2(residentPages * 4096 < 48 * 1024 * 1024, qPrintable(QString::number(residentPages)));
}

void LineServerTest::shouldRefuseControlLinesOnRequest()
{
    ControllerProcess server;
    QVERIFY(server.start(0, {QStringLiteral("--no-control")}));
    Client client(server.port());
    QCOMPARE(client.ask("sim locked yes"), QByteArray("sim err \"control lines are switched off\""));
    QCOMPARE(client.ask("velmar2 get config is_changeable"),
             QByteArray("velmar2 get config is_changeable yes"));
}

void LineServerTest::shouldStrikeWithTheFaultsOfAScenario()
{
    ControllerProcess server;
    QVERIFY(server.start(0, {QStringLiteral("--scenario"), BuiltFiles::scenario("failing-controller.json")}));
    Client client(server.port());
    QCOMPARE(client.ask("velmar2 tracking start"), QByteArray("velmar2 ok"));
    QCOMPARE(client.ask("velmar2 tracking start"), QByteArray("velmar2 err 7 \"fault on request\""));
    QCOMPARE(client.ask("velmar2 set tracking extra_scaling 2"),
             QByteArray("velmar2 err 7 \"fault on request\""));
    QCOMPARE(client.ask("velmar2 get tracking extra_scaling"),
             QByteArray("velmar2 get tracking extra_scaling 2.00000"));
    QCOMPARE(client.ask("sim fault long 1 status active 12"), QByteArray("sim ok"));
    QCOMPARE(client.ask("velmar2 get status active"), QByteArray("xxxxxxxxxxxx"));
}

void LineServerTest::shouldCloseEveryConnectionOnADisconnection()
{
    ControllerProcess server;
    QVERIFY(server.start());
    Client first(server.port()), second(server.port());
    QCOMPARE(second.ask("sim get clock"), QByteArray("sim get clock real"));
    QCOMPARE(first.ask("sim fault disconnect 0.3"), QByteArray("sim ok"));
    QVERIFY(second.socket().state() == QAbstractSocket::UnconnectedState ||
            second.socket().waitForDisconnected(patienceMs));
    QVERIFY(isServed(server.port()));
}

void LineServerTest::shouldRefuseToStartWithAPipeAsTheScenario()
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.json"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QProcess process;
    process.start(BuiltFiles::controller(), {QStringLiteral("--scenario"), pipe});
    QVERIFY(process.waitForFinished(patienceMs));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().contains("cannot be opened: it is not a regular file"));
}

void LineServerTest::shouldRefuseToStartWithBadArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("complaint");
    const auto row = [](const char *name, const QStringList &arguments, const char *complaint) {
        QTest::newRow(name) << arguments << QByteArray(complaint);
    };
    row("port", {QStringLiteral("--port"), QStringLiteral("70000")},
        "bad address, port, number of connections or idle time");
    row("address", {QStringLiteral("--listen"), QStringLiteral("nowhere")},
        "bad address, port, number of connections or idle time");
    row("idle time", {QStringLiteral("--idle"), QStringLiteral("long")},
        "bad address, port, number of connections or idle time");
    row("scenario", {QStringLiteral("--scenario"), QStringLiteral("no-such.json")},
        "no-such.json: cannot be opened: ");
    row("control", {QStringLiteral("--control"), QStringLiteral("sim dance")},
        "sim dance: sim err \"unknown control line\"");
    row("fault", {QStringLiteral("--fault"), QStringLiteral("fail")}, "not a fault line: fail");
}

void LineServerTest::shouldRefuseToStartWithBadArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    QProcess process;
    process.start(BuiltFiles::controller(), arguments);
    QVERIFY(process.waitForFinished(patienceMs));
    QCOMPARE(process.exitCode(), 2);
    QVERIFY2(process.readAllStandardError().contains(complaint), complaint.constData());
}

ROOM_TEST_CLASS(LineServerTest)
#include "LineServerTest.moc"
