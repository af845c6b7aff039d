#pragma once

#include "FaultPlan.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

#include <chrono>
#include <string>
#include <vector>

class LineConnection;
class LocalController;
struct LinkAnswer;
struct SimRecord;

/// A simulated controller for clients over TCP: a line in, a line out, and pushed records.
///
///     velmar2 subscribe KIND...   the records that this connection wants from now on; without a kind none
///
/// A pushed line is "record <kind> <line>". All clients share the one controller. Faults strike the request
/// lines of all clients: a failed call answers `velmar2 err <code> "fault on request"`, a disconnection
/// closes every connection.
class LineServer : public QObject
{
    Q_OBJECT

public:
    /// The controller must outlive the server.
    explicit LineServer(LocalController &controller, QObject *parent = nullptr);
    ~LineServer() override;

    /// Takes clients; port 0 means any free one. False when that fails, errorString() tells why.
    bool listen(const QHostAddress &address, quint16 port);
    quint16 port() const { return m_server.serverPort(); }
    QString errorString() const { return m_server.errorString(); }

    /// One more connection than this number takes the place of the one that has been idle for the longest
    /// time, if that is the idle time at least; else it is told so and closed.
    void setLargestConnectionCount(int count) { m_mostConnections = count; }

    /// How long a connection may send no line while others wait; a minute at first.
    void setIdleTime(std::chrono::milliseconds time) { m_idleTime = time; }

    /// Whether clients may send control lines; they may at first.
    void setControlAllowed(bool allowed) { m_controlAllowed = allowed; }

    FaultPlan &faults() { return m_faults; }

    int connectionCount() const { return static_cast<int>(m_connections.size()); }

signals:
    /// What happened to a connection, in a sentence.
    void noted(const QString &text);

private:
    void acceptAll();
    void admit(LineConnection *connection);
    bool makeRoom();
    void letGo(LineConnection *connection);
    void remove(LineConnection *connection);
    void handle(LineConnection *connection, const std::string &line);
    void request(LineConnection *connection, const std::string &line);
    LinkAnswer execute(LineConnection *connection, const std::string &line);
    std::string control(const std::string &line);
    void closeAll();
    void push(const std::vector<SimRecord> &records);
    double now() const;

    LocalController &m_controller;
    QTcpServer m_server;
    QElapsedTimer m_clock;
    FaultPlan m_faults;
    std::vector<LineConnection *> m_connections; ///< children of this object
    int m_mostConnections = 16;
    std::chrono::milliseconds m_idleTime = std::chrono::minutes(1);
    bool m_controlAllowed = true;
};
