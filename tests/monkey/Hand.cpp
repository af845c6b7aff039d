#include "Hand.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWheelEvent>
#include <QtTest>

namespace
{

constexpr int dragSteps = 4;
constexpr int deltaPerClick = 120;

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
    QTest::keyPress(window, key, modifiers);
    if (!guarded.isNull())
        QTest::keyRelease(guarded, key, modifiers);
}

} // namespace Hand
