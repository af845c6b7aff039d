#include "AssignmentTree.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int unassigned = -1;
constexpr std::size_t pairsBetweenQuestions = 20000;

/// What else takes time, in bounded pairs: a branch for every point, the estimate of a partner, and a
/// complete order for every point.
constexpr std::size_t workOfBranch = 2;
constexpr std::size_t workOfEstimate = 4;
constexpr std::size_t workOfVisit = 12;

constexpr std::size_t mostListed = 8000000;

constexpr double lengthSlack = 2e-12;

} // namespace

AssignmentTree::AssignmentTree(const OrderFit &fit, const TwinPoints &references, const TwinPoints &measured)
    : m_fit(fit)
    , m_referenceTwins(references)
    , m_measuredTwins(measured)
    , m_bound(fit.references(), fit.measured())
    , m_count(static_cast<int>(fit.references().size()))
    , m_levels(fit.references().size())
    , m_order(fit.references().size(), unassigned)
    , m_referenceTaken(fit.references().size(), 0)
    , m_measuredTaken(fit.references().size(), 0)
    , m_listedAt(fit.references().size())
{
    for (Level &level : m_levels)
        level.partners.resize(fit.references().size());
}

double AssignmentTree::leastRmsMm() const
{
    const std::vector<char> none(m_order.size(), 0);
    return std::sqrt(m_bound.lengthRest(none, none) / m_count) * m_bound.unitMm();
}

double AssignmentTree::largestRmsMm() const
{
    RotationBound::Moments all;
    for (int i = 0; i < m_count; ++i)
        all = m_bound.extended(all, i, i);
    return std::sqrt(all.squares / m_count) * m_bound.unitMm();
}

/// The sum of squares, in the units of the bound, that belongs to the visitor's limit.
double AssignmentTree::limit() const
{
    return m_bound.sumWithin(m_visitor->limitMm());
}

bool AssignmentTree::walk(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn)
{
    m_visitor = &visitor;
    m_goOn = &goOn;
    Level &root = m_levels.front();
    for (std::vector<int> &partners : root.partners) {
        partners.resize(m_order.size());
        for (int j = 0; j < m_count; ++j)
            at(partners, j) = j;
    }
    return !fillLevel(0) || descend(0);
}

bool AssignmentTree::isFull() const
{
    return m_listed > mostListed;
}

bool AssignmentTree::mayGoOn()
{
    m_work += workOfBranch * m_order.size();
    if (isFull())
        return false;
    if (m_work < pairsBetweenQuestions)
        return true;
    m_work = 0;
    return !*m_goOn || (*m_goOn)();
}

/// A level keeps the room that it once had.
void AssignmentTree::countPartners(int depth)
{
    std::size_t listed = 0;
    for (const std::vector<int> &partners : at(m_levels, depth).partners)
        listed += partners.size();
    std::size_t &most = at(m_listedAt, depth);
    m_listed += std::max(listed, most) - most;
    most = std::max(listed, most);
}

bool AssignmentTree::descend(int depth)
{
    const Level &level = at(m_levels, depth);
    const int reference = narrowest(level);
    if (reference == unassigned)
        return visitSingle(level);
    m_work += workOfEstimate * at(level.partners, reference).size();
    for (const Branch &branch : branches(level, reference)) {
        if (!mayGoOn() || !tryPartner(depth, reference, branch.measured))
            return false;
    }
    return true;
}

/// Every reference point has one partner left: there is no need to bound any further.
bool AssignmentTree::visitSingle(const Level &level)
{
    PointOrder order = m_order;
    for (int i = 0; i < m_count; ++i) {
        if (at(order, i) == unassigned)
            at(order, i) = at(level.partners, i).front();
    }
    if (!m_fit.canStart(order))
        return true;
    m_work += workOfVisit * m_order.size();
    return m_visitor->visit(order);
}

/// False when the walk was ended.
bool AssignmentTree::tryPartner(int depth, int reference, int measured)
{
    if (!isFirstOfTwins(measured))
        return true;
    const bool reached = assign(depth, reference, measured);
    const bool goesOn = !reached || descend(depth + 1);
    release(reference, measured);
    return goesOn;
}

/// Takes the pair. False when no order with it can reach the limit.
bool AssignmentTree::assign(int depth, int reference, int measured)
{
    const Level &level = at(m_levels, depth);
    Level &next = at(m_levels, depth + 1);
    at(m_order, reference) = measured;
    at(m_referenceTaken, reference) = 1;
    at(m_measuredTaken, measured) = 1;
    if (!triplePasses(reference))
        return false;
    next.moments = m_bound.extended(level.moments, reference, measured);
    const double rest = m_bound.lengthRest(m_referenceTaken, m_measuredTaken);
    if (m_bound.exceeds(next.moments, limit() - rest * (1.0 - lengthSlack)))
        return false;
    for (int i = 0; i < m_count; ++i) {
        if (!at(m_referenceTaken, i))
            at(next.partners, i) = at(level.partners, i);
    }
    countPartners(depth + 1);
    return fillLevel(depth + 1);
}

void AssignmentTree::release(int reference, int measured)
{
    at(m_order, reference) = unassigned;
    at(m_referenceTaken, reference) = 0;
    at(m_measuredTaken, measured) = 0;
}

/// Leaves the partners that do not exceed the limit. False when somebody is left without any.
bool AssignmentTree::fillLevel(int depth)
{
    Level &level = at(m_levels, depth);
    const double bound = limit();
    const bool hasTwins = m_referenceTwins.any();
    for (int i = 0; i < m_count; ++i) {
        if (at(m_referenceTaken, i))
            continue;
        std::vector<int> &partners = at(level.partners, i);
        const auto excluded = [&](int j) {
            if (at(m_measuredTaken, j) || (hasTwins && !keepsTwinsAscending(i, j)))
                return true;
            ++m_work;
            return m_bound.exceedsWith(level.moments, i, j, bound);
        };
        partners.erase(std::remove_if(partners.begin(), partners.end(), excluded), partners.end());
        if (partners.empty())
            return false;
    }
    return everyoneHasAPartner(level);
}

bool AssignmentTree::everyoneHasAPartner(const Level &level)
{
    m_covered = m_measuredTaken;
    for (int i = 0; i < m_count; ++i) {
        if (at(m_referenceTaken, i))
            continue;
        for (const int j : at(level.partners, i))
            at(m_covered, j) = 1;
    }
    return std::find(m_covered.begin(), m_covered.end(), 0) == m_covered.end();
}

/// The free reference point with the fewest partners, or none when all have only one. As every measured point
/// is somebody's partner, those are then all different.
int AssignmentTree::narrowest(const Level &level) const
{
    int best = unassigned;
    bool isSingle = true;
    for (int i = 0; i < m_count; ++i) {
        if (at(m_referenceTaken, i))
            continue;
        const std::size_t size = at(level.partners, i).size();
        isSingle = isSingle && size == 1;
        if (best == unassigned || size < at(level.partners, best).size())
            best = i;
    }
    return isSingle ? unassigned : best;
}

std::vector<AssignmentTree::Branch> AssignmentTree::branches(const Level &level, int reference) const
{
    std::vector<Branch> list;
    for (const int j : at(level.partners, reference))
        list.push_back({RotationBound::estimate(m_bound.extended(level.moments, reference, j)), j});
    std::sort(list.begin(), list.end(),
              [](const Branch &left, const Branch &right) { return left.estimate < right.estimate; });
    return list;
}

/// Of equal measured points the first free one is taken.
bool AssignmentTree::isFirstOfTwins(int measured) const
{
    for (const int twin : m_measuredTwins.members(m_measuredTwins.group(measured))) {
        if (twin < measured && !at(m_measuredTaken, twin))
            return false;
    }
    return true;
}

/// Equal reference points get partners of ascending groups.
bool AssignmentTree::keepsTwinsAscending(int reference, int measured) const
{
    const int group = m_measuredTwins.group(measured);
    for (const int twin : m_referenceTwins.members(m_referenceTwins.group(reference))) {
        if (!at(m_referenceTaken, twin))
            continue;
        const int other = m_measuredTwins.group(at(m_order, twin));
        if (twin < reference ? other > group : other < group)
            return false;
    }
    return true;
}

/// True unless the first three reference points just became complete and allow no start.
bool AssignmentTree::triplePasses(int reference) const
{
    return reference > 2 || m_order[0] == unassigned || m_order[1] == unassigned ||
           m_order[2] == unassigned || m_fit.canStart(m_order);
}
