#pragma once

#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QWaitCondition>

#include <chrono>
#include <functional>

/// Barks when nothing has happened for too long, from a thread of its own, since the one that it watches
/// hangs.
///
/// The limit is for a program that has come to a stand; it says nothing about how fast anything must be.
class Watchdog final : public QThread
{
public:
    /// Gets what happened last, the newest at the end; called at most once.
    using Bark = std::function<void(const QStringList &)>;

    Watchdog(std::chrono::milliseconds limit, Bark bark);
    ~Watchdog() override;

    /// This happens now.
    void note(const QString &event);

    QStringList lastEvents() const;

protected:
    void run() override;

private:
    std::chrono::milliseconds m_limit;
    Bark m_bark;
    mutable QMutex m_mutex;
    QWaitCondition m_changed;
    QStringList m_events;
    unsigned m_count = 0; ///< of all events
    bool m_ends = false;
};
