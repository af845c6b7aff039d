#pragma once

/// Kinds of letters as the "C" locale has them, whatever the locale is.
namespace Ascii
{

inline bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

inline bool isBlank(char letter)
{
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

} // namespace Ascii
