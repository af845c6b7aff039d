#pragma once

#include "BuiltFiles.h"

#include <QProcess>
#include <QString>

/// A simulated controller as a program of its own, at a free port of this computer.
class ControllerProcess
{
public:
    explicit ControllerProcess(const QStringList &arguments = {})
    {
        m_process.start(BuiltFiles::controller(),
                        QStringList{QStringLiteral("--port"), QStringLiteral("0")} + arguments);
        constexpr int patienceMs = 60000;
        while (!m_process.canReadLine() && m_process.waitForReadyRead(patienceMs)) {
        }
        m_address = QString::fromLatin1(m_process.readLine()).trimmed().section(QLatin1Char(' '), -1);
    }

    ~ControllerProcess()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// HOST:PORT.
    QString address() const { return m_address; }

private:
    QProcess m_process;
    QString m_address;
};
