#include "ServerThreads.h"

#include "LineServer.h"
#include "LocalController.h"
#include "SimController.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace
{

void waitForPort(const QAtomicInteger<quint16> &port)
{
    while (port.loadAcquire() == 0)
        QThread::msleep(1);
}

void end(QThread &thread)
{
    thread.quit();
    thread.wait();
}

} // namespace

ControllerThread::ControllerThread()
{
    start();
    waitForPort(m_port);
}

ControllerThread::~ControllerThread()
{
    end(*this);
}

void ControllerThread::run()
{
    SimController controller;
    LocalController link(controller);
    LineServer server(link);
    if (!server.listen(QHostAddress::LocalHost, 0))
        qFatal("the loopback cannot be listened on");
    m_port.storeRelease(server.port());
    exec();
}

EchoThread::EchoThread()
{
    start();
    waitForPort(m_port);
}

EchoThread::~EchoThread()
{
    end(*this);
}

void EchoThread::run()
{
    QTcpServer server;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&server] {
        QTcpSocket *socket = server.nextPendingConnection();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(socket, &QTcpSocket::readyRead, socket,
                         [socket] { socket->write(socket->readAll()); });
    });
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("the loopback cannot be listened on");
    m_port.storeRelease(server.serverPort());
    exec();
}
