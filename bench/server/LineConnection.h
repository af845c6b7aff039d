#pragma once

#include "LineBuffer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <chrono>
#include <set>
#include <string>

class QTcpSocket;
struct SimRecord;

/// One client of the server: it cuts what arrives into lines, and sends answers and records.
///
/// Lines end with a line feed, a carriage return before it is dropped. A line that is too long is refused
/// once and skipped to its end. While the client does not fetch what was sent, no more is read from it and
/// records are left out, so that neither side can fill the memory.
class LineConnection : public QObject
{
    Q_OBJECT

public:
    static constexpr int longestLine = 1000;

    /// Takes the socket over.
    explicit LineConnection(QTcpSocket *socket, QObject *parent = nullptr);

    void send(const std::string &answer);
    void push(const SimRecord &record);
    void close();

    /// Sends a last line as far as the client takes it at once; the connection may be deleted afterwards.
    void sendLast(const std::string &answer);

    /// No line is read until resume(), however many have arrived.
    void pause() { m_paused = true; }
    void resume();

    /// How long ago the last line came, or the client itself.
    std::chrono::milliseconds idleTime() const { return std::chrono::milliseconds(m_sinceLine.elapsed()); }

    /// Where the client is, as ADDRESS:PORT.
    QString peer() const;

    std::set<std::string> kinds; ///< the records that are pushed

signals:
    void lineArrived(const std::string &line);
    void lineTooLong();
    void closed();

private:
    void read();
    void takeLines();
    bool takeLine();
    bool isCongested() const;

    QTcpSocket *m_socket;
    LineBuffer m_received;
    QElapsedTimer m_sinceLine;
    bool m_skipping = false;
    bool m_paused = false;
    bool m_taking = false;
};
