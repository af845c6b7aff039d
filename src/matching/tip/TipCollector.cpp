#include "TipCollector.h"

#include "PointArithmetic.h"

#include <cmath>

void TipCollector::add(double timestamp, const MatchingPoint &tip)
{
    if (m_tips.empty())
        m_first = timestamp;
    m_last = timestamp;
    if (m_tips.size() < largestCount)
        m_tips.push_back(tip);
}

TipCollector::Judgement TipCollector::finish(double duration, double tolerance)
{
    Judgement judgement;
    if (!m_tips.empty() && elapsed() >= duration)
        judgement = judge(tolerance);
    else if (elapsed() > 0.0)
        judgement.outcome = Outcome::EndedEarly;
    clear();
    return judgement;
}

void TipCollector::clear()
{
    m_tips.clear();
    m_first = 0.0;
    m_last = 0.0;
}

double TipCollector::elapsed() const
{
    return m_last - m_first;
}

TipCollector::Judgement TipCollector::judge(double tolerance) const
{
    const auto n = static_cast<double>(m_tips.size());
    Judgement judgement;
    for (const MatchingPoint &tip : m_tips) {
        for (std::size_t i = 0; i < tip.size(); ++i)
            judgement.mean[i] += tip[i];
    }
    for (double &coordinate : judgement.mean)
        coordinate /= n;
    for (const MatchingPoint &tip : m_tips)
        judgement.variance += squaredLength(difference(tip, judgement.mean));
    judgement.variance /= n;
    judgement.standardDeviation = std::sqrt(judgement.variance);
    const bool still = tolerance >= judgement.standardDeviation;
    judgement.outcome = still ? Outcome::Point : Outcome::TipMoved;
    return judgement;
}
