#include "WheelGuard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

WheelGuard::WheelGuard(QWidget *boxOrList)
    : QObject(boxOrList)
    , m_widget(boxOrList)
{
    boxOrList->setFocusPolicy(Qt::StrongFocus);
    boxOrList->installEventFilter(this);
}

void WheelGuard::protect(QWidget *boxOrList)
{
    new WheelGuard(boxOrList);
}

void WheelGuard::protectAll(const QWidget *window)
{
    const auto lists = window->findChildren<QComboBox *>();
    for (QComboBox *list : lists)
        protect(list);
    const auto boxes = window->findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *box : boxes)
        protect(box);
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel || m_widget->hasFocus())
        return QObject::eventFilter(watched, event);
    event->ignore(); // handled here, but not accepted: Qt offers it to the parent
    return true;
}
