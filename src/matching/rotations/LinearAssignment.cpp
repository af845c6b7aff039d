#include "LinearAssignment.h"

#include "PointArithmetic.h"
#include "RowScan.h"

#include <algorithm>
#include <numeric>

namespace
{

constexpr int nobody = -1;
constexpr int fewRows = 100;
constexpr double forbidden = std::numeric_limits<double>::infinity();

} // namespace

LinearAssignment::LinearAssignment(int count)
    : m_count(count)
    , m_rowPrices(static_cast<std::size_t>(count), 0.0)
    , m_columnPrices(static_cast<std::size_t>(count), 0.0)
    , m_columnOfRow(static_cast<std::size_t>(count), nobody)
    , m_rowOfColumn(static_cast<std::size_t>(count), nobody)
    , m_rests(static_cast<std::size_t>(count), 0.0)
    , m_openPrices(static_cast<std::size_t>(count), 0.0)
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

LinearAssignment::Row LinearAssignment::rowOf(const Table &table, int row)
{
    const std::size_t first = table.pairs.firstOf(row);
    const bool isWhole = table.pairs.areAll();
    return {isWhole ? nullptr : table.pairs.columns() + first, table.costs + first,
            table.pairs.firstOf(row + 1) - first};
}

/// What the pairs of a row cost beyond the prices of their columns.
void LinearAssignment::findRests(const Row &row, const std::vector<double> &prices)
{
    double *rests = m_rests.data();
    const double *of = prices.data();
    if (row.columns == nullptr) {
        for (std::size_t k = 0; k < row.size; ++k)
            rests[k] = row.costs[k] - of[k];
        return;
    }
    for (std::size_t k = 0; k < row.size; ++k)
        rests[k] = row.costs[k] - of[row.columns[k]];
}

/// Gives every row its cheapest column, if that is still free.
void LinearAssignment::reduceRows(const Table &table)
{
    m_freeRows.clear();
    for (int i = 0; i < m_count; ++i) {
        const Row row = rowOf(table, i);
        findRests(row, m_columnPrices);
        const double least = RowScan::leastOf(m_rests.data(), row.size);
        at(m_rowPrices, i) = least;
        const int column =
            least < forbidden ? row.column(RowScan::firstUpTo(least, m_rests.data(), row.size)) : nobody;
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
    m_openPrices = m_columnPrices;
    m_closed.clear();
    m_closedLengths.clear();
    m_reached = 0.0;
}

/// Goes on from a row with a settled path. Settled columns have no price that could be paid.
void LinearAssignment::scanRow(const Table &table, int row)
{
    const Row pairs = rowOf(table, row);
    findRests(pairs, m_openPrices);
    const double offset = m_reached - at(m_rowPrices, row);
    if (pairs.columns == nullptr) {
        RowScan::lower(m_lengths.data(), m_rowBefore.data(), m_rests.data(), pairs.size, offset, row);
        return;
    }
    for (std::size_t k = 0; k < pairs.size; ++k) {
        const std::size_t j = pairs.columns[k];
        if (m_rests[k] + offset < m_lengths[j]) {
            m_lengths[j] = m_rests[k] + offset;
            m_rowBefore[j] = row;
        }
    }
}

/// Returns the column that the next shortest path leads to.
int LinearAssignment::settleNearest()
{
    const double shortest = RowScan::leastOf(m_lengths.data(), m_lengths.size());
    if (!(shortest < forbidden))
        return nobody;
    const auto column = static_cast<int>(RowScan::firstUpTo(shortest, m_lengths.data(), m_lengths.size()));
    m_reached = std::max(m_reached, shortest);
    m_closed.push_back(column);
    m_closedLengths.push_back(shortest);
    at(m_lengths, column) = forbidden;
    at(m_openPrices, column) = -forbidden;
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
        const auto row = static_cast<int>(at(m_rowBefore, column));
        at(m_rowOfColumn, column) = row;
        std::swap(column, at(m_columnOfRow, row));
        if (row == freeRow)
            return;
    }
}
