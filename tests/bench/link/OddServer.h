#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

/// A server of one thread of its own that answers the n-th line with the n-th text, whatever the line is.
///
/// A text "close" closes the connection, "part" sends an answer without its end and closes, "silence" sends
/// nothing, "flood" sends a line without an end, "records" an answer and behind it 11 MB of short records.
/// After the last text every line is answered "velmar2 ok".
class OddServer : public QThread
{
public:
    static constexpr int recordCount = 750000;

    explicit OddServer(const QList<QByteArray> &answers)
        : m_answers(answers)
    {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost);
        m_port = probe.serverPort();
        probe.close();
        start();
        while (!m_listening.loadAcquire())
            msleep(1);
    }
    ~OddServer() override
    {
        m_stop.storeRelease(1);
        wait();
    }

    quint16 port() const { return m_port; }

protected:
    void run() override
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost, m_port);
        m_listening.storeRelease(1);
        while (!m_stop.loadAcquire()) {
            if (server.waitForNewConnection(20))
                serve(server.nextPendingConnection());
        }
    }

private:
    void serve(QTcpSocket *socket)
    {
        while (!m_stop.loadAcquire() && socket->state() == QAbstractSocket::ConnectedState) {
            if (!socket->canReadLine() && !socket->waitForReadyRead(20))
                continue;
            while (socket->canReadLine()) {
                socket->readLine();
                answer(socket, m_answers.isEmpty() ? QByteArray("velmar2 ok") : m_answers.takeFirst());
            }
        }
        delete socket;
    }

    void answer(QTcpSocket *socket, const QByteArray &text)
    {
        if (text == "part")
            socket->write("velmar2 get sta");
        else if (text == "flood")
            socket->write(QByteArray(300000, 'x'));
        else if (text == "records")
            socket->write("velmar2 ok\n" + QByteArray("record fr fr 1\n").repeated(recordCount));
        else if (text != "close" && text != "silence")
            socket->write(text + "\n");
        while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten(1000)) {
        }
        if (text == "part" || text == "close")
            socket->disconnectFromHost();
    }

    QList<QByteArray> m_answers;
    quint16 m_port = 0;
    QAtomicInt m_stop;
    QAtomicInt m_listening;
};
