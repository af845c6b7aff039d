#pragma once

#include "BuiltFiles.h"

#include <QProcess>

/// The program velmar-controller on the loopback, ended with this object.
class ControllerProcess
{
public:
    ~ControllerProcess() { kill(); }

    /// Starts it on the port, 0 for any; false when it does not say that it listens.
    bool start(quint16 port = 0, const QStringList &arguments = {})
    {
        m_process.start(BuiltFiles::controller(),
                        QStringList{QStringLiteral("--port"), QString::number(port)} + arguments);
        if (!m_process.waitForReadyRead(patienceMs))
            return false;
        const QString line = QString::fromLatin1(m_process.readLine());
        m_port = line.section(QLatin1Char(':'), -1).trimmed().toUShort();
        return line.startsWith(QLatin1String("listening on 127.0.0.1:")) && m_port != 0;
    }

    void kill()
    {
        m_process.kill();
        m_process.waitForFinished(patienceMs);
    }

    quint16 port() const { return m_port; }
    QProcess &process() { return m_process; }

private:
    static constexpr int patienceMs = 60000;

    QProcess m_process;
    quint16 m_port = 0;
};
