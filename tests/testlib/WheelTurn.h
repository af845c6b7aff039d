#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QtTest>

/// Turns the mouse wheel over the middle of a widget, away from the hand if `notches` is positive, as the
/// window system tells it: the application gives the focus by it, and offers it to what lies behind.
inline void turnWheelOver(QWidget *widget, int notches)
{
    QWidget *window = widget->window();
    const QPoint place = widget->mapTo(window, widget->rect().center());
    QWidget *hit = window->childAt(place);
    QWheelEvent event(hit->mapFrom(window, place), window->mapToGlobal(place), QPoint(),
                      QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(hit, &event);
}
