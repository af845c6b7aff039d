#include "RecordFaults.h"

#include <algorithm>

namespace
{

void replaceCount(std::string &line, int count)
{
    const std::size_t begin = std::min(line.find(' '), line.size());
    const std::size_t end = std::min(line.find(' ', begin + 1), line.size());
    line.replace(begin, end - begin, " " + std::to_string(count));
}

void damage(std::string &line, const RecordFaults::Damage &how)
{
    if (how.text)
        line = *how.text;
    if (how.count)
        replaceCount(line, *how.count);
    const std::size_t bracket = line.find(']');
    if (how.withoutBracket && bracket != std::string::npos)
        line.erase(bracket, 1);
    if (how.cutAfter)
        line.resize(std::min(line.size(), *how.cutAfter));
    if (how.paddedLength)
        line.resize(std::max(line.size(), *how.paddedLength), 'x');
}

} // namespace

void RecordFaults::swap(const std::string &first, const std::string &second, int frames)
{
    constexpr std::size_t mostSwaps = 100;
    if (m_swaps.size() < mostSwaps)
        m_swaps.push_back({first, second, frames});
}

void RecordFaults::clear()
{
    m_damages.clear();
    m_swaps.clear();
}

bool RecordFaults::exists(const std::string &kind) const
{
    if (kind == "6df" || kind == "6dmt")
        return formats != Formats::Second;
    if (kind == "6df2" || kind == "6dmt2")
        return formats != Formats::First;
    return true;
}

std::vector<SimRecord> RecordFaults::apply(std::vector<SimRecord> frame)
{
    applySwaps(frame);
    if (m_damages.empty())
        return frame;
    std::vector<SimRecord> delivered;
    for (SimRecord &record : frame) {
        const auto found = m_damages.find(record.kind);
        if (found == m_damages.end())
            delivered.push_back(std::move(record));
        else
            deliver(std::move(record), found->second, delivered);
    }
    return delivered;
}

void RecordFaults::applySwaps(std::vector<SimRecord> &frame)
{
    const auto find = [&frame](const std::string &kind) {
        return std::find_if(frame.begin(), frame.end(),
                            [&kind](const SimRecord &record) { return record.kind == kind; });
    };
    for (Swap &swap : m_swaps) {
        const auto first = find(swap.first);
        const auto second = find(swap.second);
        if (swap.frames-- > 0 && first != frame.end() && second != frame.end())
            std::swap(*first, *second);
    }
    m_swaps.erase(std::remove_if(m_swaps.begin(), m_swaps.end(), [](const Swap &s) { return s.frames <= 0; }),
                  m_swaps.end());
}

void RecordFaults::deliver(SimRecord record, Damage &how, std::vector<SimRecord> &delivered)
{
    damage(record.line, how);
    if (how.dropFrames > 0) {
        --how.dropFrames;
        return;
    }
    delivered.push_back(record);
    if (how.repeatFrames > 0) {
        --how.repeatFrames;
        delivered.push_back(std::move(record));
    }
}
