#include "HideWatch.h"

#include <QDialog>
#include <QEvent>

HideWatch::HideWatch(QDialog *dialog)
    : m_dialog(dialog)
    , m_window(dialog->parentWidget() ? dialog->parentWidget()->window() : nullptr)
{
    if (m_window)
        m_window->installEventFilter(this);
}

/// A window that was never shown is none that was hidden.
bool HideWatch::isHidden() const
{
    return m_window && m_window->isHidden() && m_window->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

bool HideWatch::eventFilter(QObject *watched, QEvent *event)
{
    const bool ends = watched == m_window && event->type() == QEvent::Hide && !event->spontaneous();
    if (ends && m_dialog)
        m_dialog->reject();
    return false;
}
