#pragma once

#include "ControllerProcess.h"
#include "RemoteController.h"

#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>

/// A person before the bench's own window: two programs, the bench and the controller, and keys that come
/// through the X server.
class ScreenUser
{
public:
    ScreenUser();
    ~ScreenUser();

    /// Presses keys as xdotool names them, one after another.
    void press(const QStringList &keys);
    void type(const QString &text);

    /// Presses a key until the window with this title has the keyboard. False when it never gets it.
    bool pressUntil(const QString &key, const QString &title);

    /// Waits until the window with this title has the keyboard.
    bool waitForWindow(const QString &title);

    /// Runs a control line or a request at the controller.
    QString ask(const QString &line);

    /// Waits until the controller holds this value.
    bool waitForValue(const QString &parameter, const QString &value);

private:
    static QString output(const QStringList &arguments);
    static QString focusedWindow();

    ControllerProcess m_controller;
    std::unique_ptr<RemoteController> m_link;
    QProcess m_bench;
};
