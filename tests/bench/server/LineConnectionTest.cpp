#include "LineConnection.h"

#include "RecordFaults.h"
#include "TestClock.h"
#include "TestRegistry.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <memory>

using namespace std::chrono_literals;

namespace
{

/// A client and the connection that the server has with it.
class Pair
{
public:
    Pair()
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        client.connectToHost(QHostAddress::LocalHost, server.serverPort());
        if (!server.waitForNewConnection(5000))
            return;
        QTcpSocket *socket = server.nextPendingConnection();
        socket->setParent(nullptr);
        connection = std::make_unique<LineConnection>(socket);
        QObject::connect(connection.get(), &LineConnection::lineArrived, &client,
                         [this](const std::string &line) { lines << QString::fromStdString(line); });
        client.waitForConnected(5000);
    }

    /// What the client has fetched so far.
    QByteArray fetched()
    {
        m_fetched += client.readAll();
        return m_fetched;
    }

    QTcpSocket client;
    std::unique_ptr<LineConnection> connection;
    QStringList lines;

private:
    QByteArray m_fetched;
};

} // namespace

class LineConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCutWhatArrivesIntoLines()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        // WHEN
        pair.client.write("one\r\ntwo\n\nthr");
        QTRY_COMPARE(pair.lines.size(), 3);
        pair.client.write("ee\n");
        // THEN
        QTRY_COMPARE(pair.lines, QStringList({"one", "two", "", "three"}));
    }

    void shouldRefuseALineThatIsTooLongOnceAndSkipIt_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("tooLong");
        QTest::newRow("as long as may be") << LineConnection::longestLine << false;
        QTest::newRow("one character more") << LineConnection::longestLine + 1 << true;
        QTest::newRow("more than is read at once") << 300000 << true;
    }
    void shouldRefuseALineThatIsTooLongOnceAndSkipIt()
    {
        // GIVEN
        QFETCH(int, length);
        QFETCH(bool, tooLong);
        Pair pair;
        QVERIFY(pair.connection);
        const QSignalSpy refusals(pair.connection.get(), &LineConnection::lineTooLong);
        // WHEN
        pair.client.write(QByteArray(length, 'x') + "\nnext\n");
        // THEN
        QTRY_COMPARE(pair.lines.value(pair.lines.size() - 1), QStringLiteral("next"));
        QCOMPARE(refusals.size(), tooLong ? 1 : 0);
        QCOMPARE(pair.lines.size(), tooLong ? 1 : 2);
    }

    void shouldReadNoLineWhilePaused()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        connect(pair.connection.get(), &LineConnection::lineArrived, pair.connection.get(),
                &LineConnection::pause);
        // WHEN
        pair.client.write("one\ntwo\n");
        // THEN
        QTRY_COMPARE(pair.lines, QStringList("one"));
        TestClock::advance(1s);
        QCOMPARE(pair.lines, QStringList("one"));
        pair.connection->resume();
        QTRY_COMPARE(pair.lines, QStringList({"one", "two"}));
    }

    void shouldPushOnlyTheRecordsThatAreWanted()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        pair.connection->kinds = {"fr"};
        // WHEN
        pair.connection->push({"ts", "12.5"});
        pair.connection->push({"fr", "7"});
        pair.connection->send("end");
        // THEN
        QTRY_COMPARE(pair.fetched(), QByteArray("record fr 7\nend\n"));
    }

    void shouldLeaveOutRecordsThatWaitForTooLong()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        pair.connection->kinds = {"fr"};
        const std::string kilobyte(1024 - sizeof "record fr ", 'x');
        // WHEN nothing is sent meanwhile
        for (int i = 0; i < 2000; ++i)
            pair.connection->push({"fr", kilobyte});
        pair.connection->send("end");
        // THEN
        QTRY_VERIFY(pair.fetched().endsWith("\nend\n"));
        QVERIFY2(qAbs(pair.fetched().count("record") - 1024) <= 8,
                 QByteArray::number(pair.fetched().count("record")).constData());
    }

    void shouldReadNoMoreWhileTheAnswersAreNotFetched()
    {
        // GIVEN a client that fetches nothing
        Pair pair;
        QVERIFY(pair.connection);
        pair.client.setReadBufferSize(1);
        connect(pair.connection.get(), &LineConnection::lineArrived, pair.connection.get(),
                [&pair] { pair.connection->send(std::string(32U * 1024 * 1024, 'x')); });
        // WHEN
        pair.client.write("one\ntwo\n");
        // THEN
        QTRY_COMPARE(pair.lines, QStringList("one"));
        TestClock::advance(1s);
        QCOMPARE(pair.lines, QStringList("one"));
        pair.client.setReadBufferSize(0);
        QTRY_COMPARE((pair.client.readAll(), pair.lines), QStringList({"one", "two"}));
    }

    void shouldTellWhenTheClientHasGone()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        QSignalSpy closed(pair.connection.get(), &LineConnection::closed);
        // WHEN
        pair.client.disconnectFromHost();
        // THEN
        QTRY_COMPARE(closed.size(), 1);
    }

    void shouldSendWhatIsLeftBeforeItCloses()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        // WHEN
        pair.connection->send("last");
        pair.connection->close();
        // THEN
        QTRY_COMPARE(pair.client.state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(pair.fetched(), QByteArray("last\n"));
    }

    void shouldSendALastLineThoughItIsDeleted()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        // WHEN
        pair.connection->sendLast("last");
        pair.connection.reset();
        // THEN
        QTRY_COMPARE(pair.client.state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(pair.fetched(), QByteArray("last\n"));
    }

    void shouldTellWhereTheClientIs()
    {
        const Pair pair;
        QVERIFY(pair.connection);
        QCOMPARE(pair.connection->peer(), QStringLiteral("127.0.0.1:%1").arg(pair.client.localPort()));
    }

    void shouldCountTheIdleTimeFromTheLastLine()
    {
        // GIVEN
        Pair pair;
        QVERIFY(pair.connection);
        TestClock::advance(50s);
        QVERIFY(pair.connection->idleTime() >= 50s);
        // WHEN
        pair.client.write("no line yet");
        TestClock::advance(10s);
        QVERIFY(pair.connection->idleTime() >= 60s);
        pair.client.write("\n");
        // THEN
        QTRY_COMPARE(pair.lines.size(), 1);
        QVERIFY(pair.connection->idleTime() < 50s);
    }
};

ROOM_TEST_CLASS(LineConnectionTest)
#include "LineConnectionTest.moc"
