#include "DialogPlace.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace
{

constexpr int gap = 8;

QRect onScreen(const QWidget *widget)
{
    return {widget->mapToGlobal(QPoint(0, 0)), widget->size()};
}

} // namespace

DialogPlace::DialogPlace(QWidget *window, QWidget *inSight, QWidget *neighbour)
    : QObject(window)
    , m_window(window)
    , m_inSight(inSight)
    , m_neighbour(neighbour)
{
    qApp->installEventFilter(this);
}

bool DialogPlace::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show || event->spontaneous() || !watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    const bool isOurs = widget->windowType() == Qt::Dialog && widget->parentWidget() == m_window;
    if (isOurs && !widget->testAttribute(Qt::WA_Moved))
        place(widget);
    return false;
}

void DialogPlace::place(QWidget *dialog) const
{
    QVector<QRect> others;
    if (m_neighbour->isVisible())
        others << m_neighbour->frameGeometry();
    // The frame of a window is known only when it has been shown.
    const QSize frame = m_window->frameGeometry().size() - m_window->size();
    const QSize size = dialog->size() + frame;
    for (const QRect &part : {m_window->frameGeometry(), onScreen(m_inSight)}) {
        const auto corner =
            find(size, m_window->screen()->availableGeometry(), QVector<QRect>{part} + others);
        if (corner) {
            dialog->move(*corner);
            return;
        }
    }
}

std::optional<QPoint> DialogPlace::find(const QSize &size, const QRect &screen, const QVector<QRect> &free)
{
    QVector<QPoint> corners;
    for (const QRect &one : free)
        corners << QPoint(one.left(), one.bottom() + 1 + gap) << QPoint(one.right() + 1 + gap, one.top());
    corners << QPoint(screen.left(), screen.bottom() + 1 - size.height());
    for (const QPoint &corner : qAsConst(corners)) {
        const QRect wanted(corner, size);
        const auto covers = [&wanted](const QRect &one) { return one.intersects(wanted); };
        if (screen.contains(wanted) && std::none_of(free.begin(), free.end(), covers))
            return corner;
    }
    return std::nullopt;
}
