#pragma once

#include <cstdarg>
#include <string>

/// A printf format filled in with its values, with a decimal point whatever the program's locale is.
std::string formattedText(const char *format, va_list values);

/// The values of a variadic operation, filled into its format, as the constant `name`. Only the operation
/// itself can begin its list of values.
#define FORMATTED_TEXT(name, format)                                                                         \
    va_list values##name;                                                                                    \
    va_start(values##name, format);                                                                          \
    const std::string name = formattedText(format, values##name);                                            \
    va_end(values##name)
