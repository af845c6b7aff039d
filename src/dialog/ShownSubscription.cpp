#include "ShownSubscription.h"

#include <QEvent>
#include <QWidget>

ShownSubscription::ShownSubscription(const TrackingAccess &controller, Requester *requester, QWidget *window)
    : m_window(window)
    , m_records(controller, requester)
{
}

void ShownSubscription::note(bool isShown, const QEvent &event)
{
    m_isShown = isShown;
    m_wasHidden = m_wasHidden || (!isShown && !event.spontaneous());
    if (event.spontaneous()) // the window system's, such as a minimised window's: Qt is not yet through
        QMetaObject::invokeMethod(
            m_window, [this] { settle(); }, Qt::QueuedConnection);
    else if (!m_isChanging)
        settle();
}

void ShownSubscription::settle()
{
    if (m_isShown)
        m_records.begin();
    else
        m_records.end();
}
