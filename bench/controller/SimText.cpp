#include "SimText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace
{

constexpr int compactDecimals = 3;

// Enough for the largest double with a few decimals.
constexpr std::size_t longestNumber = 340;

template <typename Number>
std::optional<Number> whole(std::string_view word)
{
    Number value{};
    const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
    if (result.ec != std::errc() || result.ptr != word.data() + word.size())
        return std::nullopt;
    return value;
}

bool isZero(std::string_view digits)
{
    return digits.find_first_not_of("-0.") == std::string_view::npos;
}

} // namespace

namespace SimText
{

std::string fixed(double value, int decimals)
{
    std::array<char, longestNumber> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    if (text.front() == '-' && isZero(text))
        text.remove_prefix(1);
    return std::string(text);
}

std::string compact(double value)
{
    std::string text = fixed(value, compactDecimals);
    while (text.back() == '0' && text[text.size() - 2] != '.')
        text.pop_back();
    return text;
}

std::optional<double> real(std::string_view word)
{
    if (startsWith(word, "+"))
        word.remove_prefix(1);
    const std::optional<double> value = whole<double>(word);
    if (!value || !(std::fabs(*value) <= largestNumber))
        return std::nullopt;
    return value;
}

std::optional<int> integer(std::string_view word)
{
    return whole<int>(word);
}

std::optional<bool> truth(std::string_view word)
{
    if (word == "yes" || word == "on")
        return true;
    if (word == "no" || word == "off")
        return false;
    return std::nullopt;
}

std::string yesOrNo(bool value)
{
    return value ? "yes" : "no";
}

std::vector<std::string_view> words(std::string_view line)
{
    std::vector<std::string_view> list;
    while (true) {
        const std::size_t end = std::min(line.find(' '), line.size());
        list.push_back(line.substr(0, end));
        if (end == line.size())
            return list;
        line.remove_prefix(end + 1);
    }
}

std::optional<std::vector<std::string_view>> quotedWords(std::string_view line)
{
    std::vector<std::string_view> list;
    while (true) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (line.empty())
            return list;
        const bool quoted = line.front() == '"';
        if (quoted)
            line.remove_prefix(1);
        const std::size_t end = line.find(quoted ? '"' : ' ');
        if (quoted && end == std::string_view::npos)
            return std::nullopt;
        list.push_back(line.substr(0, end));
        line.remove_prefix(std::min(end == std::string_view::npos ? end : end + 1, line.size()));
    }
}

bool startsWith(std::string_view text, std::string_view prefix)
{
    return text.substr(0, prefix.size()) == prefix;
}

} // namespace SimText
