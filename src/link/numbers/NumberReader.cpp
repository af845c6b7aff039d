#include "NumberReader.h"

#include "Ascii.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <locale.h>

namespace
{

locale_t cLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// The end of the letters that a plain decimal number can hold.
const char *endOfDecimal(const char *text)
{
    while (Ascii::isDigit(*text) || *text == '.' || *text == 'e' || *text == 'E' || *text == '-' ||
           *text == '+')
        ++text;
    return text;
}

/// Reads plain decimal numbers, several times faster than strtod. Null, and nothing written, for everything
/// else (no digit first, a plus sign, hexadecimal, infinity, NaN, out of range): that is left to strtod.
const char *readPlainReal(const char *text, double *value)
{
    while (Ascii::isBlank(*text))
        ++text;
    const char *digits = *text == '-' ? text + 1 : text;
    if (!Ascii::isDigit(*digits) || digits[1] == 'x' || digits[1] == 'X')
        return nullptr;
    const std::from_chars_result result = std::from_chars(text, endOfDecimal(digits), *value);
    return result.ec == std::errc() ? result.ptr : nullptr;
}

} // namespace

namespace NumberReader
{

double real(const char *text, char **end)
{
    double value = 0.0;
    const char *behind = readPlainReal(text, &value);
    if (!behind)
        return strtod_l(text, end, cLocale());
    *end = const_cast<char *>(behind);
    return value;
}

float singleReal(const char *text, char **end)
{
    return strtof_l(text, end, cLocale());
}

int integer(const char *text, char **end)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<long>(std::strtol(text, end, 0), Limits::min(), Limits::max()));
}

std::uint32_t unsignedInteger(const char *text, char **end)
{
    const unsigned long largest = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(std::strtoul(text, end, 0), largest));
}

} // namespace NumberReader
