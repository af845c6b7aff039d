#include "CellOrders.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <tuple>

namespace
{

constexpr long stepsBetweenQuestions = 1000;

} // namespace

CellOrders::CellOrders(const TwinPoints &references, const TwinPoints &measured)
    : m_references(references)
    , m_measured(measured)
{
    for (int group = 0; group < references.groupCount(); ++group) {
        m_room.push_back(static_cast<int>(references.members(group).size()));
        m_count += references.members(group).size();
    }
    m_options.resize(m_count);
    m_places.resize(m_count);
    m_groups.resize(m_count);
}

bool CellOrders::prepare(const AllowedPairs &pairs, const std::vector<double> &rests, double gap,
                         std::size_t mostPairs)
{
    m_gap = gap;
    if (!findOptions(pairs, rests, mostPairs))
        return false;
    for (std::vector<Option> &options : m_options)
        std::sort(options.begin(), options.end(),
                  [](const Option &left, const Option &right) { return left.rest < right.rest; });
    sortPlaces();
    return true;
}

CellOrders::Outcome CellOrders::forEach(long mostSteps, const Visit &visit)
{
    m_visit = &visit;
    m_goOn = nullptr;
    m_stepsLeft = mostSteps;
    return descend(0, m_gap);
}

CellOrders::Outcome CellOrders::forEach(const OrderVisitor::GoOn &goOn, const Visit &visit)
{
    return forEach(std::numeric_limits<long>::max(), goOn, visit);
}

CellOrders::Outcome CellOrders::forEach(long mostSteps, const OrderVisitor::GoOn &goOn, const Visit &visit)
{
    m_visit = &visit;
    m_goOn = &goOn;
    m_stepsLeft = std::min(mostSteps, stepsBetweenQuestions);
    m_questionsLeft = mostSteps / stepsBetweenQuestions;
    return descend(0, m_gap);
}

bool CellOrders::mayStep()
{
    if (--m_stepsLeft >= 0)
        return true;
    m_stepsLeft = stepsBetweenQuestions;
    return m_goOn != nullptr && --m_questionsLeft >= 0 && (!*m_goOn || (*m_goOn)());
}

bool CellOrders::findOptions(const AllowedPairs &pairs, const std::vector<double> &rests,
                             std::size_t mostPairs)
{
    for (std::vector<Option> &options : m_options)
        options.clear();
    std::size_t found = 0;
    for (int group = 0; group < m_references.groupCount(); ++group) {
        for (const int i : m_references.members(group)) {
            for (std::size_t pair = pairs.firstOf(i); pair < pairs.firstOf(i + 1); ++pair) {
                if (rests[pair] <= m_gap &&
                    addOption(group, pairs.columns()[pair], std::max(rests[pair], 0.0)))
                    ++found;
            }
        }
        if (found > mostPairs)
            return false;
    }
    return true;
}

/// Rows of equal reference points have the same rests but for rounding. False when one of them came before.
bool CellOrders::addOption(int group, int measured, double rest)
{
    std::vector<Option> &options = at(m_options, measured);
    if (options.empty() || options.back().group != group) {
        options.push_back({rest, group});
        return true;
    }
    options.back().rest = std::min(options.back().rest, rest);
    return false;
}

/// Equal measured points stand one behind the other, in their order in the list.
void CellOrders::sortPlaces()
{
    const auto key = [this](int j) {
        const int group = m_measured.group(j);
        return std::make_tuple(at(m_options, m_measured.members(group).front()).size(), group, j);
    };
    std::iota(m_places.begin(), m_places.end(), 0);
    std::sort(m_places.begin(), m_places.end(),
              [&key](int left, int right) { return key(left) < key(right); });
}

CellOrders::Outcome CellOrders::descend(std::size_t depth, double gap)
{
    if (depth == m_count)
        return (*m_visit)(order()) ? Outcome::Complete : Outcome::Ended;
    const int j = m_places[depth];
    const bool hasTwin = depth > 0 && m_measured.group(m_places[depth - 1]) == m_measured.group(j);
    const int firstGroup = hasTwin ? at(m_groups, m_places[depth - 1]) : 0;
    for (const Option &option : at(m_options, j)) {
        if (option.rest > gap)
            break;
        if (option.group < firstGroup || at(m_room, option.group) == 0)
            continue;
        if (!mayStep())
            return Outcome::TooMany;
        at(m_groups, j) = option.group;
        --at(m_room, option.group);
        const Outcome outcome = descend(depth + 1, gap - option.rest);
        ++at(m_room, option.group);
        if (outcome != Outcome::Complete)
            return outcome;
    }
    return Outcome::Complete;
}

PointOrder CellOrders::order() const
{
    std::vector<std::size_t> taken(static_cast<std::size_t>(m_references.groupCount()), 0);
    PointOrder order(m_count);
    for (std::size_t j = 0; j < m_count; ++j) {
        const int group = m_groups[j];
        at(order, m_references.members(group)[at(taken, group)++]) = static_cast<int>(j);
    }
    return order;
}
