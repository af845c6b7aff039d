#pragma once

#include "RecordFaults.h"

#include <cstddef>
#include <deque>
#include <set>
#include <string>
#include <vector>

/// Records that have arrived and wait to be handed out, frame by frame.
///
/// A frame ends where a kind comes again. When more wait than the backlog may hold, the oldest frames are
/// dropped, each as a whole, and counted; a frame whose beginning has been handed out is never dropped.
class FrameBacklog
{
public:
    static constexpr std::size_t mostFrames = 120; ///< two seconds, as long as an answer may take
    static constexpr std::size_t mostBytes = 4 * 1024 * 1024;
    static constexpr std::size_t mostRecordsPerFrame = 32;

    void push(const SimRecord &record);

    /// The oldest frame that waits, as far as it has arrived; it may not be called when none does.
    std::vector<SimRecord> take();

    bool isEmpty() const { return m_frames.empty(); }
    void clear();

    /// The frames dropped since this object was made.
    long droppedCount() const { return m_dropped; }

private:
    bool beginsFrame(const SimRecord &record) const;
    void drop();

    std::deque<std::vector<SimRecord>> m_frames;
    std::set<std::string> m_kindsOfLast; // of the frame that arrives at present
    std::size_t m_bytes = 0;
    bool m_isFrontRest = false; // the beginning of the first frame has been handed out
    long m_dropped = 0;
};
