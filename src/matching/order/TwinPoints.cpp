#include "TwinPoints.h"

#include <map>

TwinPoints::TwinPoints(const MatchingPoints &points, int firstExchangeable)
    : m_groups(points.size())
{
    std::map<MatchingPoint, int> groups;
    for (std::size_t point = 0; point < points.size(); ++point) {
        const int fresh = static_cast<int>(m_members.size());
        const bool alone = static_cast<int>(point) < firstExchangeable;
        const int group = alone ? fresh : groups.emplace(points[point], fresh).first->second;
        if (group == fresh)
            m_members.emplace_back();
        m_groups[point] = group;
        m_members[static_cast<std::size_t>(group)].push_back(static_cast<int>(point));
    }
}
