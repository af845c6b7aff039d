#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reading and printing of the controller's lines, always with a decimal point, whatever the locale.
namespace SimText
{

/// The largest magnitude of a number that the controller takes; it keeps every line of a bounded length.
constexpr double largestNumber = 1e9;

/// The value with that many decimals; never a negative zero.
std::string fixed(double value, int decimals);

/// The value with at least one and at most three decimals: 1.0, 1.5, 0.125.
std::string compact(double value);

/// Numbers with that many decimals, separated by single blanks.
template <typename Numbers>
std::string joined(const Numbers &values, int decimals)
{
    std::string text;
    for (const double value : values)
        text += (text.empty() ? "" : " ") + fixed(value, decimals);
    return text;
}

/// A finite decimal number that fills the whole word, at most largestNumber in magnitude.
std::optional<double> real(std::string_view word);

/// A base-10 integer that fills the whole word.
std::optional<int> integer(std::string_view word);

/// yes, on / no, off.
std::optional<bool> truth(std::string_view word);

std::string yesOrNo(bool value);

/// The parts between single blanks; two blanks in a row give an empty word. The words point into the line.
std::vector<std::string_view> words(std::string_view line);

/// Like words(), but runs of blanks count as one, and a part in double quotes is one word without its quotes.
/// Nothing when a quote is not closed.
std::optional<std::vector<std::string_view>> quotedWords(std::string_view line);

bool startsWith(std::string_view text, std::string_view prefix);

} // namespace SimText
