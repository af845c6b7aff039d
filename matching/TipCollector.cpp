#include "TipCollector.h"

#include <cmath>

void TipCollector::add(double timestamp, const bsVector &tip)
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
    for (const bsVector &tip : m_tips)
        judgement.mean = judgement.mean + tip;
    judgement.mean.divide(n);
    for (const bsVector &tip : m_tips) {
        const bsVector d = tip - judgement.mean;
        judgement.variance += d.x * d.x + d.y * d.y + d.z * d.z;
    }
    judgement.variance /= n;
    judgement.standardDeviation = std::sqrt(judgement.variance);
    const bool still = tolerance >= judgement.standardDeviation;
    judgement.outcome = still ? Outcome::Point : Outcome::TipMoved;
    return judgement;
}
