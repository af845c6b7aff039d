#pragma once

#include <cstdint>
#include <vector>

/// The pairs of rows and columns that an assignment may use, and the narrower choices made of them, one
/// within the other.
///
/// The pairs of a choice are numbered from 0, row by row; row i has those from `firstOf(i)` to before
/// `firstOf(i + 1)`. While all pairs are allowed, that of row i and column j has the number i * count + j.
class AllowedPairs
{
public:
    using Column = std::uint16_t;

    /// All pairs of `count` rows and as many columns, at most 65535.
    explicit AllowedPairs(int count);

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] std::size_t size() const { return m_columns.size() - m_choices.back().firstColumn; }

    /// Whether every pair is allowed, so that a pair's place in its row is its column.
    [[nodiscard]] bool areAll() const { return m_choices.size() == 1; }

    [[nodiscard]] std::size_t firstOf(int row) const
    {
        return m_firsts[m_choices.back().firstRow + static_cast<std::size_t>(row)];
    }

    /// The column of every pair.
    [[nodiscard]] const Column *columns() const { return m_columns.data() + m_choices.back().firstColumn; }

    /// Leaves the pairs whose value is at most `largest`, if a quarter goes at least; so all choices together
    /// never take more than four times the memory of the first. False when nothing has changed.
    bool narrow(const std::vector<double> &values, double largest);

    /// Back to the choice before.
    void widen();

private:
    struct Choice {
        std::size_t firstColumn;
        std::size_t firstRow;
    };

    int m_count;
    std::vector<Choice> m_choices;
    std::vector<Column> m_columns;       ///< of all choices, one behind the other
    std::vector<std::uint32_t> m_firsts; ///< likewise, of each one more than rows
};
