#pragma once

#include "AllowedPairs.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

/// The cheapest complete assignment of rows to columns, by shortest augmenting paths.
///
/// Shapes: `count` rows and as many columns; `costs[k]` belongs to pair k of those that are allowed. An
/// infinite cost forbids the pair, too; no cost may be NaN or minus infinity.
/// Prices: u of the rows and v of the columns with cost - u - v >= 0 for every pair (but for rounding), so
/// that no assignment costs less than the sum of all prices, and one with the pair (i, j) no less than that
/// sum and the rest of the pair. A solution begins with the column prices of the one before; where costs have
/// changed little, that leaves little to do. Source: R. Jonker, A. Volgenant, Computing 38 (1987) 325.
class LinearAssignment
{
public:
    /// At least one row.
    explicit LinearAssignment(int count);

    /// False when every complete assignment costs more than `limit`, or none is allowed; rows and columns
    /// then have no partners.
    [[nodiscard]] bool solve(const AllowedPairs &pairs, const std::vector<double> &costs,
                             double limit = std::numeric_limits<double>::infinity());

    /// Asked before every path of more than a hundred rows; false ends a solution, as if its limit was too
    /// low.
    void setGoOn(std::function<bool()> goOn) { m_goOn = std::move(goOn); }

    /// The sum of all prices, after a solution the cost of the assignment but for rounding.
    [[nodiscard]] double bound() const;

    /// The column of every row.
    [[nodiscard]] const std::vector<int> &columns() const { return m_columnOfRow; }

    [[nodiscard]] const std::vector<double> &rowPrices() const { return m_rowPrices; }
    [[nodiscard]] const std::vector<double> &columnPrices() const { return m_columnPrices; }

    /// Prices to begin the next solution with; any finite ones.
    void setColumnPrices(const std::vector<double> &prices) { m_columnPrices = prices; }

private:
    struct Table {
        const AllowedPairs &pairs;
        const double *costs;
    };

    /// The pairs of a row.
    struct Row {
        const AllowedPairs::Column *columns; ///< none when all pairs are allowed
        const double *costs;
        std::size_t size;

        [[nodiscard]] int column(std::size_t k) const
        {
            return columns == nullptr ? static_cast<int>(k) : columns[k];
        }
    };

    [[nodiscard]] static Row rowOf(const Table &table, int row);
    void findRests(const Row &row, const std::vector<double> &prices);
    void reduceRows(const Table &table);
    [[nodiscard]] bool augment(const Table &table, int freeRow, double &bound, double limit);
    void begin();
    void scanRow(const Table &table, int row);
    [[nodiscard]] int settleNearest();
    void raisePrices(int freeRow);
    void flip(int freeRow, int column);

    int m_count;
    std::function<bool()> m_goOn;
    double m_reached = 0.0; ///< the length of the shortest path to the columns seen last
    std::vector<double> m_rowPrices;
    std::vector<double> m_columnPrices;
    std::vector<int> m_columnOfRow;
    std::vector<int> m_rowOfColumn;
    std::vector<int> m_freeRows;
    std::vector<double> m_rests;           ///< of the row that was looked at last
    std::vector<double> m_openPrices;      ///< minus infinity once settled
    std::vector<double> m_lengths;         ///< of the shortest paths known; infinity once settled
    std::vector<std::int64_t> m_rowBefore; ///< on these paths
    std::vector<int> m_closed;             ///< columns with a settled path
    std::vector<double> m_closedLengths;
};
