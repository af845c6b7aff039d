#include "LinearAssignment.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <numeric>

namespace
{

constexpr int nobody = -1;
constexpr double forbidden = std::numeric_limits<double>::infinity();

double lower(double left, double right)
{
    return left < right ? left : right;
}

/// The first column with the least cost, and that cost; nobody when all are forbidden. Four running minima,
/// so that one does not wait for the other.
int leastColumn(const double *costs, const double *prices, int count, double &least)
{
    double first = forbidden, second = forbidden, third = forbidden, fourth = forbidden;
    int j = 0;
    for (; j + 4 <= count; j += 4) {
        first = lower(costs[j] - prices[j], first);
        second = lower(costs[j + 1] - prices[j + 1], second);
        third = lower(costs[j + 2] - prices[j + 2], third);
        fourth = lower(costs[j + 3] - prices[j + 3], fourth);
    }
    for (; j < count; ++j)
        first = lower(costs[j] - prices[j], first);
    least = lower(lower(first, second), lower(third, fourth));
    for (j = 0; least < forbidden && j < count; ++j) {
        if (costs[j] - prices[j] <= least)
            return j;
    }
    return nobody;
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
        const int column = leastColumn(rowOf(costs, i), m_columnPrices.data(), m_count, at(m_rowPrices, i));
        if (column == nobody || at(m_rowOfColumn, column) != nobody) {
            m_freeRows.push_back(i);
            continue;
        }
        at(m_columnOfRow, i) = column;
        at(m_rowOfColumn, column) = i;
    }
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
    const double *prices = m_columnPrices.data();
    double *lengths = m_lengths.data();
    double shortest = forbidden;
    std::size_t best = m_open.size();
    for (std::size_t k = 0; k < m_open.size(); ++k) {
        const int j = m_open[k];
        const double length = of[j] - prices[j] + offset;
        double &known = lengths[j];
        if (length < known) {
            known = length;
            at(m_rowBefore, j) = row;
        }
        if (known < shortest) {
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
