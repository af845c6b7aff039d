#pragma once

#include "RecordSubscription.h"

class QEvent;
class QWidget;

/// The subscription of a window to measurement records, which lasts as long as the window is shown.
///
/// Qt goes on with a window after its show and hide events, so the calls are made only behind them: the host
/// may destroy the window in each.
class ShownSubscription
{
public:
    /// Neither is owned.
    ShownSubscription(const TrackingAccess &controller, Requester *requester, QWidget *window);

    /// Qt shows or hides the window in `change()`, and then it is known whether it is shown.
    template <typename Change>
    void follow(Change change)
    {
        const bool wasShown = m_isShown;
        m_isChanging = true;
        change();
        m_isChanging = false;
        if (m_isShown != wasShown) // exec() shows once more what is on the screen already
            settle();
    }

    /// To be told of every show and hide event.
    void note(bool isShown, const QEvent &event);

    /// Whether the program, not the window system, has hidden the window since forgetHiding().
    [[nodiscard]] bool wasHidden() const { return m_wasHidden; }
    void forgetHiding() { m_wasHidden = false; }

    /// Ends the subscriptions, and those that the host has ended by itself, as RecordSubscription says.
    void end() { m_records.end(); }
    void forget() { m_records.forget(); }

private:
    void settle();

    QWidget *m_window;
    RecordSubscription m_records;
    bool m_isShown = false;
    bool m_wasHidden = false;
    bool m_isChanging = false;
};
