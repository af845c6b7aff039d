#include "AllowedPairs.h"

#include <algorithm>

AllowedPairs::AllowedPairs(int count)
    : m_count(count)
    , m_choices({{0, 0}})
{
    const auto size = static_cast<std::size_t>(count);
    m_columns.resize(size * size);
    m_firsts.resize(size + 1);
    for (std::size_t pair = 0; pair < m_columns.size(); ++pair)
        m_columns[pair] = static_cast<Column>(pair % size);
    for (std::size_t row = 0; row <= size; ++row)
        m_firsts[row] = static_cast<std::uint32_t>(row * size);
}

bool AllowedPairs::narrow(const std::vector<double> &values, double largest)
{
    const std::size_t before = size();
    std::size_t left = 0;
    for (std::size_t pair = 0; pair < before; ++pair)
        left += values[pair] > largest ? 0 : 1;
    if (4 * left > 3 * before)
        return false;
    const Choice from = m_choices.back();
    m_choices.push_back({m_columns.size(), m_firsts.size()});
    m_columns.resize(m_columns.size() + left);
    const Column *columns = m_columns.data() + from.firstColumn;
    Column *kept = m_columns.data() + m_choices.back().firstColumn;
    std::uint32_t next = 0;
    for (int row = 0; row < m_count; ++row) {
        m_firsts.push_back(next);
        const std::size_t first = from.firstRow + static_cast<std::size_t>(row);
        for (std::size_t pair = m_firsts[first]; pair < m_firsts[first + 1]; ++pair) {
            if (!(values[pair] > largest))
                kept[next++] = columns[pair];
        }
    }
    m_firsts.push_back(next);
    return true;
}

void AllowedPairs::widen()
{
    m_columns.resize(m_choices.back().firstColumn);
    m_firsts.resize(m_choices.back().firstRow);
    m_choices.pop_back();
}
