#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

#include <chrono>
#include <functional>
#include <vector>

/// Steps that are done one after another from the event loop, in whatever modal loop it is at the moment.
///
/// Each step waits until the one before it has ended and it is ready itself, and is then done. What a step
/// does may run the event loop in between, as typing does: it has ended when it returns. One that opens a
/// modal window has ended with that, since it returns only when later steps have closed the window.
class EventSteps : public QObject
{
    Q_OBJECT

public:
    struct Step {
        QString name; ///< what is being done, for the report on a step that cannot be done
        std::function<bool()> isReady;
        std::function<void()> act;
    };

    /// A step that is not ready, or has not ended, after `patience` ends the whole with failed().
    explicit EventSteps(std::chrono::milliseconds patience, QObject *parent = nullptr);

    void add(Step step) { m_steps.push_back(std::move(step)); }
    void start();

signals:
    void finished();
    void failed(const QString &stepName);

private:
    void poll();
    void pollLater();
    void pollLaterOrFail(const QString &stepName);
    bool isReadyToBegin();
    bool hasLastEnded() const;
    void begin();

    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    bool m_isLastBusy = false;       // the step before m_next has not returned
    QPointer<QObject> m_modalBefore; // the modal window that stood when it began
    int m_readyPolls = 0;
    std::chrono::milliseconds m_patience;
    QElapsedTimer m_waiting;
};
