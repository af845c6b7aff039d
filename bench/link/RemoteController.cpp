#include "RemoteController.h"

#include "SimAnswer.h"

namespace
{

constexpr int longestLine = 200000;
constexpr qint64 mostUnread = 1024 * 1024;
constexpr qint64 bytesPerTurn = 256 * 1024;
constexpr std::chrono::milliseconds longestDelivery{20};
constexpr std::chrono::milliseconds firstRetryPause{500};
const QByteArray recordLead = "record ";

bool isAnswer(const QByteArray &line)
{
    return line.startsWith("velmar2 ") || line.startsWith("sim ");
}

} // namespace

RemoteController::RemoteController(const QString &host, quint16 port, QObject *parent)
    : ControllerLink(parent)
    , m_host(host)
    , m_port(port)
{
    m_clock.start();
    m_socket.setReadBufferSize(mostUnread);
    m_retry.setSingleShot(true);
    m_retry.setInterval(firstRetryPause);
    connect(&m_retry, &QTimer::timeout, this, [this] { m_socket.connectToHost(m_host, m_port); });
    connect(&m_socket, &QTcpSocket::connected, this, &RemoteController::connected);
    connect(&m_socket, &QTcpSocket::readyRead, this, &RemoteController::readUnasked);
    connect(&m_socket, &QTcpSocket::disconnected, this,
            [this] { lost(tr("the controller closed the connection")); });
    connect(&m_socket, &QAbstractSocket::errorOccurred, this, [this] { lost(m_socket.errorString()); });
}

RemoteController::~RemoteController()
{
    m_socket.disconnect(this);
}

std::optional<std::pair<QString, quint16>> RemoteController::parseAddress(const QString &text)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    bool isNumber = false;
    const quint16 port = text.midRef(colon + 1).toUShort(&isNumber);
    QString host = text.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    if (colon < 1 || !isNumber || port == 0 || host.isEmpty())
        return std::nullopt;
    return std::make_pair(host, port);
}

void RemoteController::setRetryPause(std::chrono::milliseconds pause)
{
    m_retry.setInterval(pause);
}

bool RemoteController::open()
{
    m_retry.stop();
    m_failure.clear();
    m_socket.connectToHost(m_host, m_port);
    if (!m_socket.waitForConnected(static_cast<int>(m_timeout.count())) && m_failure.isEmpty())
        lost(tr("no connection within %1 ms").arg(m_timeout.count()));
    return m_ready;
}

LinkAnswer RemoteController::ask(const std::string &line)
{
    if (!m_ready)
        return {false, tr("not connected to %1 (%2)").arg(description(), m_failure).toStdString()};
    if (m_asking || line.find('\n') != std::string::npos)
        return {false, "the line cannot be sent"};
    return exchange(line);
}

void RemoteController::subscribe(const std::set<std::string> &kinds)
{
    if (kinds == m_kinds)
        return;
    m_kinds = kinds;
    if (m_ready && !m_asking)
        exchange(subscriptionLine());
}

double RemoteController::time() const
{
    return static_cast<double>(m_clock.elapsed()) / 1000.0;
}

QString RemoteController::description() const
{
    return QStringLiteral("%1:%2").arg(m_host).arg(m_port);
}

LinkAnswer RemoteController::exchange(const std::string &line)
{
    m_asking = true;
    m_socket.write(QByteArray::fromStdString(line + "\n"));
    m_socket.flush();
    LinkAnswer answer = nextAnswer();
    m_asking = false;
    readLater(); // what came with the answer, and before it
    return answer;
}

LinkAnswer RemoteController::nextAnswer()
{
    QElapsedTimer waiting;
    waiting.start();
    while (true) {
        m_received.append(m_socket.readAll());
        while (const auto line = m_received.take()) {
            if (isAnswer(*line))
                return {true, line->toStdString()};
            if (!keepRecord(*line))
                return fail(tr("the answer is garbage: %1").arg(QString::fromLatin1(line->left(60))));
        }
        if (m_received.size() > longestLine)
            return fail(tr("the answer does not end"));
        if (m_socket.state() != QAbstractSocket::ConnectedState)
            return fail(m_received.isEmpty() ? tr("the connection was lost")
                                             : tr("the connection was lost in the middle of an answer"));
        const qint64 left = m_timeout.count() - waiting.elapsed();
        if (left <= 0 || (!m_socket.waitForReadyRead(static_cast<int>(left)) &&
                          m_socket.state() == QAbstractSocket::ConnectedState))
            return fail(tr("no answer within %1 ms").arg(m_timeout.count()));
    }
}

// A pushed line is "record <kind> <line>".
bool RemoteController::keepRecord(const QByteArray &line)
{
    const int kindEnd = line.indexOf(' ', recordLead.size());
    if (!line.startsWith(recordLead) || kindEnd < 0)
        return false;
    m_backlog.push({line.mid(recordLead.size(), kindEnd - recordLead.size()).toStdString(),
                    line.mid(kindEnd + 1).toStdString()});
    return true;
}

void RemoteController::connected()
{
    m_received.clear();
    m_backlog.clear();
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const LinkAnswer answer = exchange(subscriptionLine());
    if (!answer.arrived)
        return;
    if (answer.text != SimAnswer::ok) {
        fail(QString::fromStdString(answer.text));
        return;
    }
    m_ready = true;
    m_failure.clear();
    announce(true, m_wasConnected ? tr("Reconnected to %1.").arg(description())
                                  : tr("Connected to %1.").arg(description()));
    m_wasConnected = true;
}

void RemoteController::lost(const QString &reason)
{
    if (m_asking) // the one who waits for the answer finds out
        return;
    const bool isNews = m_ready || m_failure != reason;
    m_ready = false;
    m_received.clear();
    m_failure = reason;
    if (!m_retry.isActive())
        m_retry.start();
    if (isNews)
        announce(false, tr("No connection to %1: %2.").arg(description(), reason));
}

LinkAnswer RemoteController::fail(const QString &reason)
{
    m_asking = true;
    m_socket.abort();
    m_asking = false;
    lost(reason);
    return {false, reason.toStdString()};
}

void RemoteController::readUnasked()
{
    if (m_asking || (m_socket.isOpen() && !takeUnasked()))
        return;
    if (m_socket.bytesAvailable() > 0)
        readLater();
    deliver();
}

/// False when the connection was given up.
bool RemoteController::takeUnasked()
{
    m_received.append(m_socket.read(bytesPerTurn));
    while (const auto line = m_received.take()) {
        if (keepRecord(*line))
            continue;
        fail(tr("an answer that nobody asked for: %1").arg(QString::fromLatin1(line->left(60))));
        return false;
    }
    if (m_received.size() <= longestLine)
        return true;
    fail(tr("a line does not end"));
    return false;
}

void RemoteController::readLater()
{
    QTimer::singleShot(0, this, &RemoteController::readUnasked);
}

void RemoteController::deliver()
{
    QElapsedTimer turn;
    turn.start();
    while (!m_backlog.isEmpty() && !turn.hasExpired(longestDelivery.count()))
        emit recordsArrived(m_backlog.take());
    if (!m_backlog.isEmpty())
        readLater();
    tellDropped();
}

void RemoteController::tellDropped()
{
    if (m_backlog.droppedCount() == m_toldDropped)
        return;
    m_toldDropped = m_backlog.droppedCount();
    emit framesDropped(m_toldDropped);
}

// Never from inside a call of ask().
void RemoteController::announce(bool connected, const QString &text)
{
    QTimer::singleShot(0, this, [this, connected, text] { emit connectionChanged(connected, text); });
}

std::string RemoteController::subscriptionLine() const
{
    std::string line = "velmar2 subscribe";
    for (const std::string &kind : m_kinds)
        line += " " + kind;
    return line;
}
