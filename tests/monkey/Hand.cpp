#include "Hand.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWheelEvent>
#include <QtTest>

#include <array>
#include <utility>

namespace
{

constexpr int dragSteps = 4;
constexpr int deltaPerClick = 120;

constexpr std::array<std::pair<Qt::KeyboardModifier, Qt::Key>, 3> modifierKeys{
    {{Qt::ShiftModifier, Qt::Key_Shift},
     {Qt::ControlModifier, Qt::Key_Control},
     {Qt::AltModifier, Qt::Key_Alt}}};

} // namespace

namespace Hand
{

void click(QWindow *window, const QPoint &place, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(window, button, modifiers, place);
}

void doubleClick(QWindow *window, const QPoint &place, Qt::MouseButton button)
{
    QTest::mouseDClick(window, button, Qt::NoModifier, place);
}

void drag(QWindow *window, const QPoint &from, const QPoint &to, Qt::MouseButton button,
          Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWindow> guarded(window);
    QTest::mousePress(window, button, modifiers, from);
    for (int i = 1; i <= dragSteps && !guarded.isNull(); ++i)
        QTest::mouseMove(guarded, from + (to - from) * i / dragSteps);
    if (!guarded.isNull())
        QTest::mouseRelease(guarded, button, modifiers, to);
}

void turnWheel(QWindow *window, const QPoint &place, int clicks, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(place, window->mapToGlobal(place), QPoint(), QPoint(0, clicks * deltaPerClick),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QGuiApplication::sendEvent(window, &event);
}

void press(QWindow *window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWindow> guarded(window);
    const auto send = [&guarded](bool isPress, Qt::Key code, Qt::KeyboardModifiers with) {
        if (guarded.isNull())
            return; // any of the keys may have ended the window
        const char letter = QTest::keyToAscii(code);
        const QString text = letter != 0 ? QString(QLatin1Char(letter)) : QString();
        QTest::simulateEvent(guarded, isPress, code, with, text, false);
    };
    const auto sendModifiers = [&](bool isPress) {
        for (const auto &[flag, code] : modifierKeys) {
            if (modifiers.testFlag(flag))
                send(isPress, code, isPress ? Qt::KeyboardModifiers(flag) : Qt::KeyboardModifiers());
        }
    };
    sendModifiers(true);
    send(true, key, modifiers);
    send(false, key, modifiers);
    sendModifiers(false);
}

} // namespace Hand
