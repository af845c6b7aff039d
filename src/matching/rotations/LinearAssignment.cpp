#include "LinearAssignment.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <numeric>

namespace
{

constexpr int nobody = -1;
constexpr int fewRows = 100;
constexpr double forbidden = std::numeric_limits<double>::infinity();

double lower(double left, double right)
{
    return left < right ? left : right;
}

/// That of a settled path does not count.
double openLength(double length)
{
    return length > -forbidden ? length : forbidden;
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

double LinearAssignment::bound() const
{
    return std::accumulate(m_rowPrices.begin(), m_rowPrices.end(), 0.0) +
           std::accumulate(m_columnPrices.begin(), m_columnPrices.end(), 0.0);
}

bool LinearAssignment::solve(const AllowedPairs &pairs, const std::vector<double> &costs, double limit)
{
    const Table table = {pairs, costs.data()};
    std::fill(m_columnOfRow.begin(), m_columnOfRow.end(), nobody);
    std::fill(m_rowOfColumn.begin(), m_rowOfColumn.end(), nobody);
    reduceRows(table);
    double reached = bound();
    bool goesOn = reached <= limit;
    const bool asks = m_count > fewRows && m_goOn;
    for (std::size_t i = 0; goesOn && i < m_freeRows.size(); ++i)
        goesOn = (!asks || m_goOn()) && augment(table, m_freeRows[i], reached, limit);
    if (!goesOn)
        std::fill(m_columnOfRow.begin(), m_columnOfRow.end(), nobody);
    return goesOn;
}

/// The first column with the least cost, and that cost; nobody when all are forbidden. Four running minima,
/// so that one does not wait for the other.
int LinearAssignment::cheapestColumn(const Table &table, int row, double &least) const
{
    const std::size_t begin = table.pairs.firstOf(row), size = table.pairs.firstOf(row + 1) - begin;
    const AllowedPairs::Column *columns = table.pairs.columns() + begin;
    const double *costs = table.costs + begin, *prices = m_columnPrices.data();
    double first = forbidden, second = forbidden, third = forbidden, fourth = forbidden;
    std::size_t k = 0;
    for (; k + 4 <= size; k += 4) {
        first = lower(costs[k] - prices[columns[k]], first);
        second = lower(costs[k + 1] - prices[columns[k + 1]], second);
        third = lower(costs[k + 2] - prices[columns[k + 2]], third);
        fourth = lower(costs[k + 3] - prices[columns[k + 3]], fourth);
    }
    for (; k < size; ++k)
        first = lower(costs[k] - prices[columns[k]], first);
    least = lower(lower(first, second), lower(third, fourth));
    for (k = 0; least < forbidden && k < size; ++k) {
        if (costs[k] - prices[columns[k]] <= least)
            return columns[k];
    }
    return nobody;
}

/// Gives every row its cheapest column, if that is still free.
void LinearAssignment::reduceRows(const Table &table)
{
    m_freeRows.clear();
    for (int i = 0; i < m_count; ++i) {
        const int column = cheapestColumn(table, i, at(m_rowPrices, i));
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
bool LinearAssignment::augment(const Table &table, int freeRow, double &bound, double limit)
{
    begin();
    int row = freeRow;
    int column = nobody;
    do {
        scanRow(table, row);
        column = settleNearest();
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
    m_closed.clear();
    m_closedLengths.clear();
    m_reached = 0.0;
}

/// Goes on from a row with a settled path. Settled columns keep their minus infinity.
void LinearAssignment::scanRow(const Table &table, int row)
{
    const std::size_t begin = table.pairs.firstOf(row), size = table.pairs.firstOf(row + 1) - begin;
    const double *costs = table.costs + begin, *prices = m_columnPrices.data();
    double *lengths = m_lengths.data();
    int *rowBefore = m_rowBefore.data();
    const double offset = m_reached - at(m_rowPrices, row);
    const AllowedPairs::Column *columns = table.pairs.columns() + begin;
    for (std::size_t k = 0; k < size; ++k) {
        const std::size_t j = columns[k];
        const double length = costs[k] - prices[j] + offset;
        if (length < lengths[j]) {
            lengths[j] = length;
            rowBefore[j] = row;
        }
    }
}

/// Returns the column that the next shortest path leads to.
int LinearAssignment::settleNearest()
{
    const double *lengths = m_lengths.data();
    const std::size_t size = m_lengths.size();
    double least[4] = {forbidden, forbidden, forbidden, forbidden};
    std::size_t j = 0;
    for (; j + 4 <= size; j += 4) {
        for (std::size_t lane = 0; lane < 4; ++lane)
            least[lane] = lower(openLength(lengths[j + lane]), least[lane]);
    }
    for (; j < size; ++j)
        least[0] = lower(openLength(lengths[j]), least[0]);
    const double shortest = lower(lower(least[0], least[1]), lower(least[2], least[3]));
    if (!(shortest < forbidden))
        return nobody;
    const int column = static_cast<int>(
        std::find_if(lengths, lengths + size,
                     [shortest](double length) { return length <= shortest && length > -forbidden; }) -
        lengths);
    m_reached = std::max(m_reached, shortest);
    m_closed.push_back(column);
    m_closedLengths.push_back(shortest);
    at(m_lengths, column) = -forbidden;
    return column;
}

/// What is owed along the settled paths.
void LinearAssignment::raisePrices(int freeRow)
{
    at(m_rowPrices, freeRow) += m_reached;
    for (std::size_t k = 0; k < m_closed.size(); ++k) {
        const int column = m_closed[k];
        const double raise = m_reached - m_closedLengths[k];
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
