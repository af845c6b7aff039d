#pragma once

#include "HideWatch.h"

#include <QDialog>
#include <QPointer>

#include <utility>

/// A modal window from its making to its end: made on the heap as a child of its parent, run, and deleted at
/// the end of the scope unless it went with its parent before.
///
///     ModalWindow<CountdownDlg> countdown(this);
///     countdown->setTick(m_tick);
///     return countdown.exec() == QDialog::Accepted;
///
/// Where the window was destroyed, the parent may be gone, and with it the caller: see ObjectWatch.
template <typename Window>
class ModalWindow
{
public:
    /// Makes the window of these arguments; one of them is its parent.
    template <typename... Arguments>
    [[nodiscard]] explicit ModalWindow(Arguments &&...arguments)
        : m_window(new Window(std::forward<Arguments>(arguments)...))
    {
    }
    ~ModalWindow() { delete m_window.data(); }
    ModalWindow(const ModalWindow &) = delete;
    ModalWindow &operator=(const ModalWindow &) = delete;

    /// Runs the window and returns its result; QDialog::Rejected when it was destroyed meanwhile, or when the
    /// window behind it was hidden.
    int exec()
    {
        const HideWatch watch(m_window.data());
        const int result = m_window->exec();
        return m_window.isNull() ? int(QDialog::Rejected) : result;
    }

    /// Whether the window still exists; only then may it be spoken to.
    [[nodiscard]] explicit operator bool() const { return !m_window.isNull(); }
    Window *operator->() const { return m_window.data(); }

private:
    QPointer<Window> m_window;
};
