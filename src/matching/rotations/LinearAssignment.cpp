#include "LinearAssignment.h"

#include <algorithm>
#include <numeric>

namespace
{

constexpr int nobody = -1;
constexpr double forbidden = std::numeric_limits<double>::infinity();

template <class List>
auto &at(List &list, int index)
{
    return list[static_cast<std::size_t>(index)];
}

/// The cheapest two columns of a row.
struct Cheapest {
    int column = nobody;
    int nextColumn = nobody;
    double cost = forbidden;
    double nextCost = forbidden;
};

Cheapest cheapestOf(const double *costs, const double *prices, int count)
{
    Cheapest cheapest;
    for (int j = 0; j < count; ++j) {
        const double cost = costs[j] - prices[j];
        if (!(cost < cheapest.nextCost))
            continue;
        if (cost < cheapest.cost) {
            cheapest.nextCost = cheapest.cost;
            cheapest.nextColumn = cheapest.column;
            cheapest.cost = cost;
            cheapest.column = j;
        } else {
            cheapest.nextCost = cost;
            cheapest.nextColumn = j;
        }
    }
    return cheapest;
}

} // namespace

LinearAssignment::LinearAssignment(int count)
    : m_count(count)
    , m_rowPrices(static_cast<std::size_t>(count), 0.0)
    , m_columnPrices(static_cast<std::size_t>(count), 0.0)
    , m_columnOfRow(static_cast<std::size_t>(count), nobody)
    , m_rowOfColumn(static_cast<std::size_t>(count), nobody)
    , m_lengths(static_cast<std::size_t>(count), 0.0)
    , m_rowBefore(static_cast<std::size_t>(count), nobody)
{
}

const double *LinearAssignment::rowOf(const double *costs, int row) const
{
    return costs + static_cast<std::ptrdiff_t>(row) * m_count;
}

double LinearAssignment::bound() const
{
    return std::accumulate(m_rowPrices.begin(), m_rowPrices.end(), 0.0) +
           std::accumulate(m_columnPrices.begin(), m_columnPrices.end(), 0.0);
}

bool LinearAssignment::solve(const std::vector<double> &costs, double limit)
{
    std::fill(m_columnOfRow.begin(), m_columnOfRow.end(), nobody);
    std::fill(m_rowOfColumn.begin(), m_rowOfColumn.end(), nobody);
    reduceRows(costs.data());
    double reached = bound();
    bool goesOn = reached <= limit;
    if (goesOn) {
        transferReductions(costs.data());
        reached = bound();
        goesOn = reached <= limit;
    }
    for (std::size_t i = 0; goesOn && i < m_freeRows.size(); ++i)
        goesOn = augment(costs.data(), m_freeRows[i], reached, limit);
    if (!goesOn)
        std::fill(m_columnOfRow.begin(), m_columnOfRow.end(), nobody);
    return goesOn;
}

/// Gives every row its cheapest column, if that is still free.
void LinearAssignment::reduceRows(const double *costs)
{
    m_freeRows.clear();
    for (int i = 0; i < m_count; ++i) {
        const Cheapest cheapest = cheapestOf(rowOf(costs, i), m_columnPrices.data(), m_count);
        at(m_rowPrices, i) = cheapest.cost;
        if (cheapest.column == nobody || at(m_rowOfColumn, cheapest.column) != nobody) {
            m_freeRows.push_back(i);
            continue;
        }
        at(m_columnOfRow, i) = cheapest.column;
        at(m_rowOfColumn, cheapest.column) = i;
    }
}

/// Two rounds: beyond that, paths are quicker.
void LinearAssignment::transferReductions(const double *costs)
{
    for (int round = 0; round < 2; ++round) {
        std::vector<int> waiting;
        std::swap(waiting, m_freeRows);
        for (int row : waiting) {
            for (int turn = 0; row != nobody && turn < m_count && transferTo(costs, row); ++turn) {
            }
            if (row != nobody)
                m_freeRows.push_back(row);
        }
    }
}

/// The row takes its cheapest column from whoever has it and lowers that column's price until the second best
/// is as good. `row` becomes who has lost the column. False when that one must wait.
bool LinearAssignment::transferTo(const double *costs, int &row)
{
    const Cheapest cheapest = cheapestOf(rowOf(costs, row), m_columnPrices.data(), m_count);
    if (cheapest.nextColumn == nobody)
        return false;
    const bool better = cheapest.cost < cheapest.nextCost;
    const bool takesFirst = better || at(m_rowOfColumn, cheapest.column) == nobody;
    const int column = takesFirst ? cheapest.column : cheapest.nextColumn;
    if (better)
        at(m_columnPrices, column) -= cheapest.nextCost - cheapest.cost;
    at(m_rowPrices, row) = cheapest.nextCost;
    at(m_columnOfRow, row) = column;
    std::swap(row, at(m_rowOfColumn, column));
    if (row != nobody)
        at(m_columnOfRow, row) = nobody;
    return better;
}

/// Finds the shortest path from a free row to a free column and swaps partners along it. The sum of the
/// prices grows by the path's length.
bool LinearAssignment::augment(const double *costs, int freeRow, double &bound, double limit)
{
    begin();
    int row = freeRow;
    int column = nobody;
    do {
        column = scanRow(costs, row);
        if (column == nobody || bound + m_reached > limit)
            return false;
        row = at(m_rowOfColumn, column);
    } while (row != nobody);
    bound += m_reached;
    raisePrices(freeRow);
    flip(freeRow, column);
    return true;
}

void LinearAssignment::begin()
{
    std::fill(m_lengths.begin(), m_lengths.end(), forbidden);
    m_open.resize(static_cast<std::size_t>(m_count));
    std::iota(m_open.begin(), m_open.end(), 0);
    m_closed.clear();
    m_reached = 0.0;
}

/// Goes on from a row with a settled path and returns the column that the next shortest path leads to.
int LinearAssignment::scanRow(const double *costs, int row)
{
    const double *of = rowOf(costs, row);
    const double offset = m_reached - at(m_rowPrices, row);
    double shortest = forbidden;
    std::size_t best = m_open.size();
    for (std::size_t k = 0; k < m_open.size(); ++k) {
        const int j = m_open[k];
        const double length = of[j] - at(m_columnPrices, j) + offset;
        double &known = at(m_lengths, j);
        if (length < known) {
            known = length;
            at(m_rowBefore, j) = row;
        }
        if (known < shortest || (known <= shortest && known < forbidden && at(m_rowOfColumn, j) == nobody)) {
            shortest = known;
            best = k;
        }
    }
    if (best == m_open.size())
        return nobody;
    m_reached = std::max(m_reached, shortest);
    const int column = m_open[best];
    m_open[best] = m_open.back();
    m_open.pop_back();
    m_closed.push_back(column);
    return column;
}

void LinearAssignment::raisePrices(int freeRow)
{
    at(m_rowPrices, freeRow) += m_reached;
    for (const int column : m_closed) {
        const double raise = m_reached - at(m_lengths, column);
        at(m_columnPrices, column) -= raise;
        if (at(m_rowOfColumn, column) != nobody)
            at(m_rowPrices, at(m_rowOfColumn, column)) += raise;
    }
}

void LinearAssignment::flip(int freeRow, int column)
{
    for (;;) {
        const int row = at(m_rowBefore, column);
        at(m_rowOfColumn, column) = row;
        std::swap(column, at(m_columnOfRow, row));
        if (row == freeRow)
            return;
    }
}
