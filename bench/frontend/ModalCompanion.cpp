#include "ModalCompanion.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>

ModalCompanion::ModalCompanion(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    window->winId(); // makes the native window that the dialogs block
    window->windowHandle()->installEventFilter(this);
    qApp->installEventFilter(this);
}

bool ModalCompanion::eventFilter(QObject *watched, QEvent *event)
{
    if (m_window.isNull())
        return false;
    if (event->type() == QEvent::WindowBlocked && watched == m_window->windowHandle())
        standAboveModal();
    // A dialog that closes leaves the one below it in charge, but only when its hiding is over.
    if (event->type() == QEvent::Hide && watched->isWindowType() && watched != m_window->windowHandle())
        QTimer::singleShot(0, this, &ModalCompanion::standAboveModal);
    if (event->type() != QEvent::KeyPress || !watched->isWindowType() ||
        static_cast<QKeyEvent *>(event)->key() != Qt::Key_F6)
        return false;
    switchWindow();
    return true;
}

void ModalCompanion::switchWindow()
{
    QWindow *window = m_window->windowHandle();
    if (QGuiApplication::focusWindow() == window && window->transientParent() != nullptr) {
        window->transientParent()->requestActivate();
        return;
    }
    m_window->show();
    window->requestActivate();
}

void ModalCompanion::standAboveModal()
{
    if (m_window.isNull() || m_window->windowHandle() == nullptr)
        return;
    QWindow *below = QGuiApplication::modalWindow();
    if (below == nullptr && m_window->parentWidget() != nullptr)
        below = m_window->parentWidget()->window()->windowHandle();
    if (below == m_window->windowHandle())
        return;
    m_window->windowHandle()->setTransientParent(below);
    // Whether a window is blocked is found out anew only for the one that gets a new parent.
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->transientParent() == m_window->windowHandle())
            window->setTransientParent(m_window->windowHandle());
    }
}
