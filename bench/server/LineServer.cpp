#include "LineServer.h"

#include "FaultedCall.h"
#include "LineConnection.h"
#include "LocalController.h"
#include "SimAnswer.h"
#include "SimReply.h"
#include "SimScript.h"
#include "SimText.h"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#endif

namespace
{

constexpr std::size_t mostKinds = 32;

/// What the host's call for a question or a setting says: the line without its lead.
std::string callText(const std::string &line)
{
    for (const char *lead : {"velmar2 get ", "velmar2 set "}) {
        if (SimText::startsWith(line, lead))
            return line.substr(std::string_view(lead).size());
    }
    return line;
}

/// The kinds of a subscription line; nothing when it is another line.
std::optional<std::set<std::string>> subscription(const std::string &line)
{
    const auto words = SimText::words(line);
    if (words.size() < 2 || words.size() > mostKinds || words[0] != "velmar2" || words[1] != "subscribe")
        return std::nullopt;
    return std::set<std::string>(words.begin() + 2, words.end());
}

} // namespace

LineServer::LineServer(LocalController &controller, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
{
    m_clock.start();
    connect(&m_server, &QTcpServer::newConnection, this, &LineServer::acceptAll);
    connect(&controller, &LocalController::recordsArrived, this, &LineServer::push);
}

LineServer::~LineServer()
{
    for (LineConnection *connection : m_connections)
        connection->disconnect(this);
}

bool LineServer::listen(const QHostAddress &address, quint16 port)
{
    if (!m_server.listen(address, port))
        return false;
#ifdef Q_OS_UNIX
    // Qt lets 50 wait. Of more the system forgets the calls, and their clients repeat them after seconds.
    ::listen(static_cast<int>(m_server.socketDescriptor()), SOMAXCONN);
#endif
    return true;
}

void LineServer::acceptAll()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection())
        admit(new LineConnection(socket, this));
}

void LineServer::admit(LineConnection *connection)
{
    connect(connection, &LineConnection::closed, this, [this, connection] { remove(connection); });
    m_connections.push_back(connection);
    if (m_faults.isDisconnected(now())) {
        connection->close();
        return;
    }
    if (connectionCount() > m_mostConnections && !makeRoom()) {
        connection->send(SimAnswer::error(SimReply::tooManyConnections()));
        connection->close();
        return;
    }
    connect(connection, &LineConnection::lineArrived, this,
            [this, connection](const std::string &line) { handle(connection, line); });
    connect(connection, &LineConnection::lineTooLong, this,
            [connection] { connection->send(SimAnswer::error(SimReply::lineTooLong())); });
}

/// Whether the connection that came last has a place now.
bool LineServer::makeRoom()
{
    const auto newest = std::prev(m_connections.end());
    const auto idlest =
        std::max_element(m_connections.begin(), newest, [](const auto *one, const auto *other) {
            return one->idleTime() < other->idleTime();
        });
    if (idlest == newest || (*idlest)->idleTime() < m_idleTime)
        return false;
    letGo(*idlest);
    return true;
}

void LineServer::letGo(LineConnection *connection)
{
    emit noted(QStringLiteral("%1 has sent nothing for %2 s and has been let go, since others wait")
                   .arg(connection->peer())
                   .arg(std::chrono::duration_cast<std::chrono::seconds>(connection->idleTime()).count()));
    connection->sendLast(SimAnswer::error(SimReply::idle()));
    connection->disconnect(this);
    remove(connection);
}

void LineServer::remove(LineConnection *connection)
{
    m_connections.erase(std::remove(m_connections.begin(), m_connections.end(), connection),
                        m_connections.end());
    connection->deleteLater();
}

void LineServer::handle(LineConnection *connection, const std::string &line)
{
    if (SimScript::isControlLine(line))
        connection->send(control(line));
    else
        request(connection, line);
    if (m_faults.isDisconnected(now()))
        closeAll();
}

void LineServer::request(LineConnection *connection, const std::string &line)
{
    const FaultedCall call(m_faults, line, callText(line));
    const std::string answer = call.answerLine(now(), [&] { return execute(connection, line); });
    if (call.delayMilliseconds() == 0) {
        connection->send(answer);
        return;
    }
    connection->pause();
    QTimer::singleShot(call.delayMilliseconds(), connection, [connection, answer] {
        connection->send(answer);
        connection->resume();
    });
}

LinkAnswer LineServer::execute(LineConnection *connection, const std::string &line)
{
    const auto kinds = subscription(line);
    if (!kinds)
        return m_controller.ask(line);
    connection->kinds = *kinds;
    return {true, SimAnswer::ok};
}

std::string LineServer::control(const std::string &line)
{
    if (!m_controlAllowed)
        return SimAnswer::controlError("control lines are switched off");
    if (const auto handled = m_faults.run(line, now()))
        return *handled;
    return m_controller.ask(line).text;
}

void LineServer::closeAll()
{
    const std::vector<LineConnection *> connections = m_connections;
    for (LineConnection *connection : connections)
        connection->close();
}

void LineServer::push(const std::vector<SimRecord> &records)
{
    for (LineConnection *connection : m_connections) {
        for (const SimRecord &record : records)
            connection->push(record);
    }
}

double LineServer::now() const
{
    return static_cast<double>(m_clock.elapsed()) / 1000.0;
}
