#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// The changing words of a request, in their order.
struct SimArguments {
    std::vector<int> numbers;             ///< what stood for # or for c#, t#, b#, s#
    std::vector<std::string_view> words;  ///< what stood for *
    std::vector<std::string_view> values; ///< what stood for ...

    /// All values as numbers; nothing unless there are exactly `count` and every one is a number.
    std::optional<std::vector<double>> reals(std::size_t count) const;

    /// The number at that place as an index from 0 into a list of that size.
    std::optional<std::size_t> index(std::size_t place, std::size_t size) const;
};
