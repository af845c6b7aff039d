#include "TwinOrders.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <utility>

namespace
{

/// Takes one occurrence of a value, which must be there, out of a list.
template <class Value>
void takeOut(std::vector<Value> &values, Value value)
{
    values.erase(std::find(values.begin(), values.end(), value));
}

/// Goes through the exchanges like the wheels of a meter: a group that is through carries to the next.
class ExchangeMeter
{
public:
    ExchangeMeter(PointOrder order, const TwinPoints &references, const TwinPoints &measured)
        : m_current(std::move(order))
        , m_references(references)
        , m_measured(measured)
    {
        for (int group = 0; group < references.groupCount(); ++group) {
            std::vector<int> partners = partnersOf(group);
            std::sort(partners.begin(), partners.end(), byGroup());
            setPartners(group, partners);
        }
    }

    [[nodiscard]] const PointOrder &current() const { return m_current; }

    /// False when all have been.
    bool advance()
    {
        for (int group = 0; group < m_references.groupCount(); ++group) {
            std::vector<int> partners = partnersOf(group);
            const bool more = std::next_permutation(partners.begin(), partners.end(), byGroup());
            setPartners(group, partners);
            if (more)
                return true;
        }
        return false;
    }

private:
    [[nodiscard]] std::function<bool(int, int)> byGroup() const
    {
        return [this](int left, int right) { return m_measured.group(left) < m_measured.group(right); };
    }

    [[nodiscard]] std::vector<int> partnersOf(int group) const
    {
        std::vector<int> partners;
        partners.reserve(m_references.members(group).size());
        for (const int place : m_references.members(group))
            partners.push_back(at(m_current, place));
        return partners;
    }

    void setPartners(int group, const std::vector<int> &partners)
    {
        auto partner = partners.begin();
        for (const int place : m_references.members(group))
            at(m_current, place) = *partner++;
    }

    PointOrder m_current;
    const TwinPoints &m_references;
    const TwinPoints &m_measured;
};

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
    ExchangeMeter meter(order, m_references, m_measured);
    bool more = true;
    for (int number = 0; more && number < largest; ++number) {
        call(meter.current());
        more = meter.advance();
    }
}
