#include "WindowActivation.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

WindowActivation::WindowActivation(QWidget *home)
    : QObject(home)
    , m_home(home)
{
    qApp->installEventFilter(this);
}

bool WindowActivation::eventFilter(QObject *watched, QEvent *event)
{
    const bool opensOrCloses = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (!opensOrCloses || !watched->isWidgetType())
        return false;
    const auto *widget = static_cast<QWidget *>(watched);
    if (widget->isWindow() && (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog))
        QTimer::singleShot(0, this, &WindowActivation::activateTop);
    return false;
}

void WindowActivation::activateTop()
{
    QWidget *top = QApplication::activeModalWidget();
    if (top == nullptr)
        top = m_home;
    if (top->isVisible())
        top->activateWindow();
}
