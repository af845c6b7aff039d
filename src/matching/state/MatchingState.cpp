#include "MatchingState.h"

MatchingState::Controls MatchingState::controls(const Rows &rows) const
{
    const bool free = m_usable && !m_searching;
    Controls controls;
    controls.others = m_usable;
    controls.lists = free;
    controls.save = free && rows.references > 0;
    controls.replace = free && rows.measuredIsSelected;
    controls.clear = free && rows.measured > 0;
    controls.measure = m_usable && m_measureOffered;
    controls.progress = m_usable && m_toolReady;
    controls.apply = free && m_valid;
    return controls;
}

void MatchingState::beginOpening()
{
    m_open = false;
    m_toolCount = 0;
    m_toolReady = false;
    m_measuring = false;
}

void MatchingState::opened(const ToolSurvey &survey)
{
    using Verdict = ToolSurvey::Verdict;
    m_open = true;
    m_verdict = survey.verdict;
    m_toolCount = survey.toolCount;
    m_toolReady = m_verdict == Verdict::Ready;
    m_usable = m_toolReady || m_verdict == Verdict::NotCalibrated;
    m_measureOffered = m_toolReady;
}

void MatchingState::closed()
{
    m_open = false;
}

void MatchingState::beginStart()
{
    m_starting = true;
    m_measuring = true;
    m_measureOffered = false;
}

void MatchingState::looked(bool tracked)
{
    if (!tracked || m_searching)
        m_measureOffered = false;
    else if (!m_measuring)
        m_measureOffered = true;
}

void MatchingState::beginEvaluation()
{
    m_valid = false;
    m_searching = false;
}

void MatchingState::evaluated(bool valid)
{
    m_valid = valid;
    m_searching = false;
}
