#include "LineConnection.h"

#include "RecordFaults.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>

#include <utility>

namespace
{

constexpr qint64 readBuffer = 64 * 1024;
constexpr qint64 mostUnfetched = 1024 * 1024;

// After that many lines the other clients have their turn.
constexpr int linesPerTurn = 100;

} // namespace

LineConnection::LineConnection(QTcpSocket *socket, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
{
    m_sinceLine.start();
    m_socket->setParent(this);
    m_socket->setReadBufferSize(readBuffer);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(m_socket, &QTcpSocket::readyRead, this, &LineConnection::read);
    connect(m_socket, &QTcpSocket::bytesWritten, this, &LineConnection::read);
    connect(m_socket, &QTcpSocket::disconnected, this, &LineConnection::closed);
}

void LineConnection::send(const std::string &answer)
{
    m_socket->write((answer + "\n").c_str(), static_cast<qint64>(answer.size()) + 1);
}

void LineConnection::sendLast(const std::string &answer)
{
    send(answer);
    m_socket->flush();
}

void LineConnection::push(const SimRecord &record)
{
    if (kinds.count(record.kind) != 0 && !isCongested())
        send("record " + record.kind + " " + record.line);
}

void LineConnection::close()
{
    m_socket->disconnectFromHost();
}

QString LineConnection::peer() const
{
    return QStringLiteral("%1:%2").arg(m_socket->peerAddress().toString()).arg(m_socket->peerPort());
}

void LineConnection::resume()
{
    m_paused = false;
    QTimer::singleShot(0, this, &LineConnection::read);
}

void LineConnection::read()
{
    if (m_taking || m_paused || isCongested())
        return;
    m_taking = true;
    takeLines();
    m_taking = false;
}

void LineConnection::takeLines()
{
    m_received.append(m_socket->read(readBuffer - m_received.size()));
    for (int i = 0; i < linesPerTurn; ++i) {
        if (m_paused || isCongested() || !takeLine())
            return;
    }
    QTimer::singleShot(0, this, &LineConnection::read);
}

bool LineConnection::takeLine()
{
    const std::optional<QByteArray> line = m_received.take();
    const bool isTooLong = line ? line->size() > longestLine : m_received.size() > longestLine + 1;
    if (isTooLong && !m_skipping)
        emit lineTooLong();
    m_skipping = m_skipping || isTooLong;
    if (!line) {
        if (m_skipping)
            m_received.clear();
        return false;
    }
    m_sinceLine.start();
    const bool isSkipped = std::exchange(m_skipping, false);
    if (!isSkipped)
        emit lineArrived(line->toStdString());
    return true;
}

bool LineConnection::isCongested() const
{
    return m_socket->bytesToWrite() > mostUnfetched;
}
