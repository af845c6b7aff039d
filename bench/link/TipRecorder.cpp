#include "TipRecorder.h"

#include "BenchIOManager.h"
#include "SimText.h"

#include <optional>
#include <string_view>

namespace
{

/// The content of the block with that number, from 0.
std::optional<std::string_view> blockOf(std::string_view record, int number)
{
    while (true) {
        const std::size_t begin = record.find('[');
        const std::size_t end = record.find(']');
        if (begin == std::string_view::npos || end == std::string_view::npos || end < begin)
            return std::nullopt;
        if (number-- == 0)
            return record.substr(begin + 1, end - begin - 1);
        record.remove_prefix(end + 1);
    }
}

std::optional<SimVector> tipOf(std::string_view record, int tool, int blocksPerTool)
{
    const auto head = blockOf(record, (tool - 1) * blocksPerTool);
    const auto place = blockOf(record, (tool - 1) * blocksPerTool + 1);
    if (!head || !place)
        return std::nullopt;
    const auto headWords = SimText::words(*head);
    const auto words = SimText::words(*place);
    if (headWords.size() < 2 || words.size() != 3 || SimText::real(headWords[1]).value_or(-1.0) < 1.0)
        return std::nullopt;
    const auto x = SimText::real(words[0]), y = SimText::real(words[1]), z = SimText::real(words[2]);
    if (!x || !y || !z)
        return std::nullopt;
    return SimVector{*x, *y, *z};
}

} // namespace

TipRecorder::TipRecorder(BenchIOManager &channel, int tool)
    : m_channel(channel)
    , m_tool(tool)
{
    m_channel.addRequester("6dmt2", this);
    m_channel.addRequester("6dmt", this);
}

TipRecorder::~TipRecorder()
{
    m_channel.releaseRequester(this);
}

int TipRecorder::dataReceived(const char *kind, const char *record)
{
    if (m_kind.empty())
        m_kind = kind;
    if (m_kind != kind)
        return 0;
    constexpr int firstFormatBlocks = 3, secondFormatBlocks = 5;
    const int blocks = SimText::startsWith(m_kind, "6dmt2") ? secondFormatBlocks : firstFormatBlocks;
    if (const auto tip = tipOf(record, m_tool, blocks)) {
        m_sum = m_sum + *tip;
        ++m_count;
    }
    return 0;
}
