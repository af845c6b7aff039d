#include "EvaluationThread.h"

#include <QThread>

#include <atomic>
#include <chrono>
#include <ctime>
#include <functional>
#include <utility>

using namespace std::chrono_literals;

namespace
{

constexpr std::chrono::nanoseconds immediateTime = 100ms;
/// Of points in a known order; longer lists are refused where the order is searched.
constexpr std::size_t mostImmediatePoints = 10000;

/// Processor time, so that a busy machine does not change what is done at once.
std::chrono::nanoseconds usedTime()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

bool isLong(const MatchingPoints &references, const MatchingPoints &measured, MatchingEvaluation::Order order)
{
    return order == MatchingEvaluation::Order::Preserved && references.size() == measured.size() &&
           references.size() > mostImmediatePoints;
}

class Worker : public QThread
{
public:
    explicit Worker(std::function<void()> work)
        : m_work(std::move(work))
    {
    }

private:
    void run() override { m_work(); }

    std::function<void()> m_work;
};

} // namespace

struct EvaluationThread::Job {
    MatchingPoints references;
    MatchingPoints measured;
    MatchingEvaluation::Order order = MatchingEvaluation::Order::Preserved;
    std::atomic<bool> cancelled{false};
    /// Ready once `done` is; the end of the thread says the same, but by locks that no checker sees.
    MatchingEvaluation evaluation;
    std::atomic<bool> done{false};
    std::unique_ptr<QThread> thread;

    const MatchingEvaluation &awaited() const
    {
        thread->wait();
        while (!done.load(std::memory_order_acquire))
            QThread::yieldCurrentThread();
        return evaluation;
    }
};

EvaluationThread::EvaluationThread(QObject *parent)
    : QObject(parent)
{
}

EvaluationThread::~EvaluationThread()
{
    cancel();
}

std::optional<MatchingEvaluation> EvaluationThread::start(const MatchingPoints &references,
                                                          const MatchingPoints &measured,
                                                          MatchingEvaluation::Order order)
{
    cancel();
    if (!isLong(references, measured, order)) {
        const std::chrono::nanoseconds end = usedTime() + immediateTime;
        const MatchingEvaluation evaluation =
            MatchingEvaluation::of(references, measured, order, [end] { return usedTime() < end; });
        if (evaluation.outcome != MatchingEvaluation::Outcome::Cancelled && !evaluation.otherOrdersUnknown)
            return evaluation;
    }
    startThread(references, measured, order);
    return std::nullopt;
}

void EvaluationThread::startThread(const MatchingPoints &references, const MatchingPoints &measured,
                                   MatchingEvaluation::Order order)
{
    const auto job = std::make_shared<Job>();
    job->references = references;
    job->measured = measured;
    job->order = order;
    job->thread = std::make_unique<Worker>([work = job.get()] {
        work->evaluation = MatchingEvaluation::of(work->references, work->measured, work->order, [work] {
            return !work->cancelled.load(std::memory_order_relaxed);
        });
        work->done.store(true, std::memory_order_release);
    });
    m_job = job;
    connect(job->thread.get(), &QThread::finished, this, [this, job] { finish(job); });
    job->thread->start();
}

MatchingEvaluation EvaluationThread::cancel()
{
    MatchingEvaluation nothing;
    nothing.outcome = MatchingEvaluation::Outcome::Cancelled;
    if (!m_job)
        return nothing;
    const std::shared_ptr<Job> job = std::move(m_job);
    m_job = nullptr;
    job->cancelled = true;
    job->thread->disconnect(this);
    return job->awaited();
}

void EvaluationThread::finish(const std::shared_ptr<Job> &job)
{
    if (job != m_job)
        return;
    // The connection holds the job, and the job the thread that the connection belongs to.
    job->thread->disconnect(this);
    m_job = nullptr;
    emit finished(MatchingEvaluation(job->awaited()));
}
