#pragma once

#include <cstddef>
#include <cstdint>

/// Rows of numbers, gone through several at a time.
///
/// No number is NaN. The results are those of a plain loop, bit for bit.
namespace RowScan
{

/// Infinite for no numbers.
[[nodiscard]] double leastOf(const double *values, std::size_t size);

/// The place of the first that is at most `value`, or `size`.
[[nodiscard]] std::size_t firstUpTo(double value, const double *values, std::size_t size);

/// Puts `values[k] + offset` into `least[k]` and `origin` into `origins[k]`, wherever that is less.
void lower(double *least, std::int64_t *origins, const double *values, std::size_t size, double offset,
           std::int64_t origin);

} // namespace RowScan
