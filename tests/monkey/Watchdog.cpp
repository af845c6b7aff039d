#include "Watchdog.h"

#include <QDeadlineTimer>
#include <QMutexLocker>

namespace
{

constexpr int mostEvents = 25;

} // namespace

Watchdog::Watchdog(std::chrono::milliseconds limit, Bark bark)
    : m_limit(limit)
    , m_bark(std::move(bark))
{
    start();
}

Watchdog::~Watchdog()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_ends = true;
        m_changed.wakeAll();
    }
    wait();
}

void Watchdog::note(const QString &event)
{
    const QMutexLocker lock(&m_mutex);
    ++m_count;
    m_events << event;
    if (m_events.size() > mostEvents)
        m_events.removeFirst();
}

QStringList Watchdog::lastEvents() const
{
    const QMutexLocker lock(&m_mutex);
    return m_events;
}

/// Each round lasts the whole limit: a stand is noticed after one to two limits.
void Watchdog::run()
{
    unsigned seen = 0;
    QStringList events;
    {
        const QMutexLocker lock(&m_mutex);
        do {
            seen = m_count;
            const QDeadlineTimer end(m_limit);
            while (!m_ends && m_changed.wait(&m_mutex, end)) {
            }
            if (m_ends)
                return;
        } while (m_count != seen);
        events = m_events;
    }
    m_bark(events);
}
