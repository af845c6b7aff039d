#include "SimArguments.h"

#include "SimText.h"

std::optional<std::vector<double>> SimArguments::reals(std::size_t count) const
{
    if (values.size() != count)
        return std::nullopt;
    std::vector<double> numbersRead;
    for (const std::string_view word : values) {
        const std::optional<double> number = SimText::real(word);
        if (!number)
            return std::nullopt;
        numbersRead.push_back(*number);
    }
    return numbersRead;
}

std::optional<std::size_t> SimArguments::index(std::size_t place, std::size_t size) const
{
    const int number = numbers.at(place);
    if (number < 1 || static_cast<std::size_t>(number) > size)
        return std::nullopt;
    return static_cast<std::size_t>(number - 1);
}
