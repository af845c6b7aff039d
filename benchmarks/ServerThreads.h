#pragma once

#include <QAtomicInteger>
#include <QThread>

/// A simulated controller that serves the loopback from a thread of its own.
class ControllerThread : public QThread
{
public:
    ControllerThread();
    ~ControllerThread() override;
    quint16 port() const { return m_port.loadAcquire(); }

protected:
    void run() override;

private:
    QAtomicInteger<quint16> m_port = 0;
};

/// The least that a server can do: it sends back what it receives.
class EchoThread : public QThread
{
public:
    EchoThread();
    ~EchoThread() override;
    quint16 port() const { return m_port.loadAcquire(); }

protected:
    void run() override;

private:
    QAtomicInteger<quint16> m_port = 0;
};
