#pragma once

#include <cstdint>

/// Reading of numbers that does not depend on the C library's locale.
///
/// QApplication sets that locale from the environment; under one with a decimal comma the plain strtod stops
/// at the point of "1.5". Everything that the controller sends or a file holds is read here instead.
namespace NumberReader
{

/// strtod as it works in the "C" locale: leading white space is skipped, NaN, infinity and hexadecimal
/// numbers are read, `*end` is set behind what was read, or to `text` when nothing converts (the result is
/// then 0).
double real(const char *text, char **end);

/// strtof as it works in the "C" locale: the single-precision number nearest to the text.
float singleReal(const char *text, char **end);

/// strtol in base 0 (0x10 is 16, 010 is 8); a number outside the range of int becomes its nearest limit.
int integer(const char *text, char **end);

/// strtoul in base 0; a number above the range becomes its upper limit.
std::uint32_t unsignedInteger(const char *text, char **end);

} // namespace NumberReader
