#pragma once

#include <cstdarg>
#include <string>

/// A printf format filled in with its values, with a decimal point whatever the program's locale is.
std::string formattedText(const char *format, va_list values);
