#include "FrameBacklog.h"

#include <iterator>

namespace
{

std::size_t bytesOf(const SimRecord &record)
{
    return record.kind.size() + record.line.size();
}

} // namespace

void FrameBacklog::push(const SimRecord &record)
{
    if (beginsFrame(record)) {
        m_kindsOfLast.clear();
        m_frames.emplace_back();
    } else if (m_frames.empty()) {
        m_isFrontRest = true;
        m_frames.emplace_back();
    }
    m_kindsOfLast.insert(record.kind);
    m_frames.back().push_back(record);
    m_bytes += bytesOf(record);
    drop();
}

std::vector<SimRecord> FrameBacklog::take()
{
    std::vector<SimRecord> frame = std::move(m_frames.front());
    m_frames.pop_front();
    m_isFrontRest = false;
    for (const SimRecord &record : frame)
        m_bytes -= bytesOf(record);
    return frame;
}

void FrameBacklog::clear()
{
    m_frames.clear();
    m_kindsOfLast.clear();
    m_bytes = 0;
    m_isFrontRest = false;
}

bool FrameBacklog::beginsFrame(const SimRecord &record) const
{
    return m_kindsOfLast.empty() || m_kindsOfLast.count(record.kind) != 0 ||
           m_kindsOfLast.size() >= mostRecordsPerFrame;
}

void FrameBacklog::drop()
{
    const auto oldest = [this] { return std::next(m_frames.begin(), m_isFrontRest ? 1 : 0); };
    while (oldest() != m_frames.end() && std::next(oldest()) != m_frames.end() &&
           (m_frames.size() > mostFrames || m_bytes > mostBytes)) {
        for (const SimRecord &record : *oldest())
            m_bytes -= bytesOf(record);
        m_frames.erase(oldest());
        ++m_dropped;
    }
}
