#include "TwinOrders.h"

#include <algorithm>

namespace
{

template <class List>
auto &at(List &list, int index)
{
    return list[static_cast<std::size_t>(index)];
}

/// Takes the smallest value, or the largest, out of a list.
template <class Value>
void takeOut(std::vector<Value> &values, Value value)
{
    values.erase(std::find(values.begin(), values.end(), value));
}

} // namespace

/// Place by place the outermost free member of the outermost group that may stand there: which of them stands
/// at a place never forbids anything at a later one.
PointOrder TwinOrders::outermost(const PointOrder &order, bool last) const
{
    std::vector<std::vector<int>> groupsLeft(static_cast<std::size_t>(m_references.groupCount()));
    std::vector<std::vector<int>> membersLeft(static_cast<std::size_t>(m_measured.groupCount()));
    const int count = static_cast<int>(order.size());
    for (int i = 0; i < count; ++i) {
        at(groupsLeft, m_references.group(i)).push_back(m_measured.group(at(order, i)));
        at(membersLeft, m_measured.group(i)).push_back(i);
    }
    const auto next = [&](int group) {
        const std::vector<int> &members = at(membersLeft, group);
        return last ? members.back() : members.front();
    };
    const auto before = [&](int left, int right) {
        return last ? next(left) > next(right) : next(left) < next(right);
    };
    PointOrder result(order.size());
    for (int i = 0; i < count; ++i) {
        std::vector<int> &groups = at(groupsLeft, m_references.group(i));
        const int group = *std::min_element(groups.begin(), groups.end(), before);
        at(result, i) = next(group);
        takeOut(groups, group);
        takeOut(at(membersLeft, group), at(result, i));
    }
    return result;
}

void TwinOrders::forEachExchange(const PointOrder &order, int largest,
                                 const std::function<void(const PointOrder &)> &call) const
{
    std::vector<std::vector<int>> groups;
    PointOrder current = order;
    for (int group = 0; group < m_references.groupCount(); ++group) {
        if (m_references.members(group).size() > 1)
            groups.push_back(m_references.members(group));
    }
    const auto byGroup = [this](int left, int right) {
        return m_measured.group(left) < m_measured.group(right);
    };
    const auto exchange = [&](const std::vector<int> &places, bool next) {
        std::vector<int> partners;
        for (const int place : places)
            partners.push_back(at(current, place));
        const bool more = next ? std::next_permutation(partners.begin(), partners.end(), byGroup)
                               : (std::sort(partners.begin(), partners.end(), byGroup), true);
        for (std::size_t i = 0; i < places.size(); ++i)
            at(current, places[i]) = partners[i];
        return more;
    };
    for (const std::vector<int> &places : groups)
        exchange(places, false);
    for (int number = 0; number < largest; ++number) {
        call(current);
        // Counts on like the wheels of a meter: a group that wrapped around carries to the next.
        const auto moved = std::find_if(groups.begin(), groups.end(), [&](const std::vector<int> &places) {
            return exchange(places, true);
        });
        if (moved == groups.end())
            return;
    }
}
