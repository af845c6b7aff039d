#include "EventSteps.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace
{

using namespace std::chrono_literals;

constexpr auto pollInterval = 20ms;

// A window that has just become ready still draws itself; the second look finds it settled.
constexpr int neededReadyPolls = 3;

} // namespace

EventSteps::EventSteps(std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_patience(patience)
{
}

void EventSteps::start()
{
    m_waiting.start();
    pollLater();
}

void EventSteps::pollLater()
{
    // A timer of its own for each poll: one that repeats does not fire while its slot is in a modal loop.
    QTimer::singleShot(pollInterval, this, &EventSteps::poll);
}

void EventSteps::poll()
{
    if (!hasLastEnded())
        pollLaterOrFail(m_steps[m_next - 1].name);
    else if (m_next == m_steps.size())
        emit finished();
    else if (isReadyToBegin())
        begin();
    else if (m_readyPolls > 0) // on a slow machine the looks alone may take longer than the patience
        pollLater();
    else
        pollLaterOrFail(m_steps[m_next].name);
}

void EventSteps::pollLaterOrFail(const QString &stepName)
{
    if (m_waiting.hasExpired(m_patience.count()))
        emit failed(stepName);
    else
        pollLater();
}

bool EventSteps::hasLastEnded() const
{
    const QWindow *modal = QGuiApplication::modalWindow();
    return !m_isLastBusy || (modal != nullptr && modal != m_modalBefore);
}

bool EventSteps::isReadyToBegin()
{
    m_readyPolls = m_steps[m_next].isReady() ? m_readyPolls + 1 : 0;
    return m_readyPolls >= neededReadyPolls;
}

void EventSteps::begin()
{
    const std::size_t number = ++m_next;
    m_readyPolls = 0;
    m_isLastBusy = true;
    m_modalBefore = QGuiApplication::modalWindow();
    m_waiting.start();
    pollLater();
    m_steps[number - 1].act();
    if (number != m_next)
        return; // later steps have been done inside this one
    m_isLastBusy = false;
    m_waiting.start();
}
