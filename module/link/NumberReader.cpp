#include "NumberReader.h"

#include <clocale>
#include <cstdlib>
#include <locale.h>

namespace
{

locale_t cLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

} // namespace

namespace NumberReader
{

double real(const char *text, char **end)
{
    return strtod_l(text, end, cLocale());
}

float singleReal(const char *text, char **end)
{
    return strtof_l(text, end, cLocale());
}

} // namespace NumberReader
