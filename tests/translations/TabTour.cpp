#include "TabTour.h"

#include "ReadingOrder.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <QtTest>

namespace
{

/// Holds the timers of a window as long as it lives: what they enable or disable would change the way.
class HeldTimers
{
public:
    explicit HeldTimers(const QWidget &window)
    {
        const auto timers = window.findChildren<QTimer *>();
        for (QTimer *timer : timers) {
            if (timer->isActive()) {
                timer->stop();
                m_timers << timer;
            }
        }
    }
    ~HeldTimers()
    {
        for (const QPointer<QTimer> &timer : qAsConst(m_timers)) {
            if (timer != nullptr)
                timer->start();
        }
    }
    Q_DISABLE_COPY(HeldTimers)

private:
    QList<QPointer<QTimer>> m_timers;
};

QString nameOf(const QWidget *widget)
{
    if (widget == nullptr)
        return QStringLiteral("nothing");
    return QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
}

bool isStop(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
           widget->focusProxy() == nullptr;
}

QStringList strayStops(const QWidget &window, const QList<QWidget *> &stops)
{
    QStringList faults;
    const auto widgets = window.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->window() == &window && isStop(widget) && !stops.contains(widget))
            faults << nameOf(widget) + QStringLiteral(" stands in no layout");
    }
    return faults;
}

/// Presses Tab until the first of the stops has the focus.
bool goToFirst(const QWidget &window, const QList<QWidget *> &stops)
{
    for (int i = 0; i <= stops.size() && TabTour::focus(window) != stops.first(); ++i)
        TabTour::press(window, Qt::Key_Tab);
    return TabTour::focus(window) == stops.first();
}

void walk(const QWidget &window, bool isBack, const QList<QWidget *> &way, QStringList &faults)
{
    for (const QWidget *next : way) {
        const QString before = nameOf(TabTour::focus(window));
        if (isBack)
            TabTour::press(window, Qt::Key_Backtab, Qt::ShiftModifier);
        else
            TabTour::press(window, Qt::Key_Tab);
        if (TabTour::focus(window) != next)
            faults << QStringLiteral("%1 from %2 leads to %3 instead of %4")
                          .arg(isBack ? QStringLiteral("Shift+Tab") : QStringLiteral("Tab"), before,
                               nameOf(TabTour::focus(window)), nameOf(next));
    }
}

} // namespace

namespace TabTour
{

QList<QWidget *> stops(QWidget &window)
{
    QList<QWidget *> found;
    const auto widgets = ReadingOrder::of(window);
    for (QWidget *widget : widgets) {
        if (isStop(widget))
            found << widget;
    }
    return found;
}

QStringList faults(QWidget &window)
{
    const HeldTimers held(window);
    QList<QWidget *> way = stops(window);
    QStringList found = strayStops(window, way);
    if (way.isEmpty())
        return found << QStringLiteral("no control takes the focus");
    if (!goToFirst(window, way))
        return found << QStringLiteral("the Tab key does not lead to ") + nameOf(way.first());
    way.append(way.takeFirst());
    walk(window, false, way, found);
    std::reverse(way.begin(), way.end());
    way.append(way.takeFirst());
    walk(window, true, way, found);
    return found;
}

QWidget *focus(const QWidget &window)
{
    QWidget *widget = QApplication::focusWidget();
    const bool isFound = widget != nullptr && widget->window() == &window && isStop(widget);
    return isFound ? widget : nullptr;
}

void press(const QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

} // namespace TabTour
