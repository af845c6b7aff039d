#pragma once

#include "MatchingPoint.h"

#include <vector>

/// The groups of equal points of a list. Every point stands for its group; the groups are numbered from 0.
class TwinPoints
{
public:
    /// Points before `firstExchangeable` are groups of their own.
    explicit TwinPoints(const MatchingPoints &points, int firstExchangeable = 0);

    [[nodiscard]] int group(int point) const { return m_groups[static_cast<std::size_t>(point)]; }
    [[nodiscard]] int groupCount() const { return static_cast<int>(m_members.size()); }

    /// The points of a group, ascending.
    [[nodiscard]] const std::vector<int> &members(int group) const
    {
        return m_members[static_cast<std::size_t>(group)];
    }

    /// True if any group has more than one point.
    [[nodiscard]] bool any() const { return m_members.size() < m_groups.size(); }

private:
    std::vector<int> m_groups;
    std::vector<std::vector<int>> m_members;
};
