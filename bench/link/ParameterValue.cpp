#include "ParameterValue.h"

#include "SimText.h"

std::optional<bool> ParameterValue::truth(const std::string &word)
{
    if (word == "true" || word == "1")
        return true;
    if (word == "false" || word == "0")
        return false;
    return word == "yes" || word == "no" ? SimText::truth(word) : std::nullopt;
}

std::optional<std::vector<double>> ParameterValue::reals(const std::string &text, int count)
{
    const auto words = SimText::words(text);
    if (count < 0 || words.size() < static_cast<std::size_t>(count))
        return std::nullopt;
    std::vector<double> numbers;
    for (int i = 0; i < count; ++i) {
        const auto number = SimText::real(words[static_cast<std::size_t>(i)]);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}
