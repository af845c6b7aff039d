#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <vector>

/// Steps that are done one after another from the event loop, in whatever modal loop it is at the moment.
///
/// Each step waits until it is ready, and is then done. A step may open a modal dialog and so return only
/// when later steps have closed it.
class EventSteps : public QObject
{
    Q_OBJECT

public:
    struct Step {
        QString name; ///< what is being done, for the report on a step that cannot be done
        std::function<bool()> isReady;
        std::function<void()> act;
    };

    /// A step that is not ready after `patience` ends the whole with failed().
    explicit EventSteps(std::chrono::milliseconds patience, QObject *parent = nullptr);

    void add(Step step) { m_steps.push_back(std::move(step)); }
    void start();

signals:
    void finished();
    void failed(const QString &stepName);

private:
    void poll();
    void pollLater();

    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_readyPolls = 0;
    std::chrono::milliseconds m_patience;
    QElapsedTimer m_waiting;
};
