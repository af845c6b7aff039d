#pragma once

#include "ControllerLink.h"
#include "FrameBacklog.h"
#include "LineBuffer.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <optional>

/// The link to a controller in another process, over TCP.
///
/// A line that is not answered in time, or by something that is no answer, or whose connection breaks, gives
/// a failed answer that says so. After any of these the connection is given up, since a late answer would be
/// taken for that of the next line, and made again as soon as the controller can be reached; until then every
/// line fails at once.
///
/// Records that come faster than they are handled are dropped by whole frames; the event loop has its turn in
/// between.
class RemoteController : public ControllerLink
{
    Q_OBJECT

public:
    RemoteController(const QString &host, quint16 port, QObject *parent = nullptr);
    ~RemoteController() override;

    /// Splits HOST:PORT, where [HOST] may stand in brackets; nothing when it is not of that form.
    static std::optional<std::pair<QString, quint16>> parseAddress(const QString &text);

    /// How long an answer may take; 2 s at first.
    void setTimeout(std::chrono::milliseconds timeout) { m_timeout = timeout; }

    /// How long to wait between two attempts to connect; 500 ms at first.
    void setRetryPause(std::chrono::milliseconds pause);

    /// Connects and waits for it. When that fails, attempts go on by themselves, and failure() tells why.
    bool open();

    /// Why there is no connection; empty while there is one.
    QString failure() const { return m_failure; }

    LinkAnswer ask(const std::string &line) override;
    void subscribe(const std::set<std::string> &kinds) override;
    double time() const override;
    QString description() const override;
    bool isConnected() const override { return m_ready; }

private:
    LinkAnswer exchange(const std::string &line);
    LinkAnswer nextAnswer();
    bool keepRecord(const QByteArray &line);
    void connected();
    void lost(const QString &reason);
    void readUnasked();
    bool takeUnasked();
    void readLater();
    void deliver();
    void tellDropped();
    LinkAnswer fail(const QString &reason);
    void announce(bool connected, const QString &text);
    std::string subscriptionLine() const;

    QString m_host;
    quint16 m_port;
    QTcpSocket m_socket;
    QTimer m_retry;
    QElapsedTimer m_clock;
    std::chrono::milliseconds m_timeout{2000};
    LineBuffer m_received;
    FrameBacklog m_backlog; ///< arrived but not handed out yet
    long m_toldDropped = 0;
    std::set<std::string> m_kinds;
    QString m_failure;
    bool m_ready = false; ///< connected, and the other side has answered
    bool m_asking = false;
    bool m_wasConnected = false;
};
