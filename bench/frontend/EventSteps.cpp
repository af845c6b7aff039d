#include "EventSteps.h"

#include <QTimer>

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
    if (m_next == m_steps.size()) {
        emit finished();
        return;
    }
    const Step &step = m_steps[m_next];
    m_readyPolls = step.isReady() ? m_readyPolls + 1 : 0;
    if (m_readyPolls < neededReadyPolls) {
        if (m_waiting.hasExpired(m_patience.count()))
            emit failed(step.name);
        else
            pollLater();
        return;
    }
    ++m_next;
    m_readyPolls = 0;
    m_waiting.start();
    pollLater();
    step.act();
}
