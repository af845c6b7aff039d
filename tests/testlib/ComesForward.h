#pragma once

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>
#include <QtTest>

#include <functional>

/// Whether the window, which another one covers at first, is in front and has the keyboard after the call.
inline bool comesForward(QWidget &window, const std::function<void()> &call)
{
    const auto hasTheKeyboard = [](const QWidget &one) {
        return QTest::qWaitFor([&one] { return QGuiApplication::focusWindow() == one.windowHandle(); });
    };
    const auto isInFront = [](const QWidget &one) {
        return QTest::qWaitFor(
            [&one] { return QGuiApplication::topLevelAt(one.geometry().center()) == one.windowHandle(); });
    };
    if (!hasTheKeyboard(window)) // what comes late would look like an answer to the call
        return false;
    QWidget cover(&window, Qt::Window); // its own, so that a modal window lets it be used
    cover.setGeometry(window.geometry());
    cover.show();
    cover.raise();
    cover.activateWindow();
    if (!hasTheKeyboard(cover) || !isInFront(cover))
        return false;
    call();
    return hasTheKeyboard(window) && isInFront(window);
}
