#pragma once

#include "MatchingEvaluation.h"
#include "MatchingPoint.h"

#include <QObject>

#include <memory>
#include <optional>

/// Evaluates a matching: at once where that is quick, otherwise on a thread of its own.
///
/// The thread works on copies of the lists and touches nothing else. One evaluation runs at a time; a new one
/// replaces it.
class EvaluationThread : public QObject
{
    Q_OBJECT

public:
    explicit EvaluationThread(QObject *parent = nullptr);
    /// Ends a running evaluation without a result.
    ~EvaluationThread() override;

    /// Returns the evaluation when it takes less than a tenth of a second of processor time. Otherwise, and
    /// for lists so long that what is told of them takes its time too, it goes on and finished() tells the
    /// result.
    [[nodiscard]] std::optional<MatchingEvaluation>
    start(const MatchingPoints &references, const MatchingPoints &measured, MatchingEvaluation::Order order);

    [[nodiscard]] bool isRunning() const { return m_job != nullptr; }

    /// Ends a running evaluation and returns what it has: Matched if only the search for another order that
    /// fits was going on, else Cancelled. finished() does not come.
    MatchingEvaluation cancel();

signals:
    void finished(const MatchingEvaluation &evaluation);

private:
    struct Job;

    void startThread(const MatchingPoints &references, const MatchingPoints &measured,
                     MatchingEvaluation::Order order);
    void finish(const std::shared_ptr<Job> &job);

    std::shared_ptr<Job> m_job;
};
