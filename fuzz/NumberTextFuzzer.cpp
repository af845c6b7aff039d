#include "NumberText.h"

#include "Requirement.h"

#include <QString>

#include <cstddef>
#include <cstdint>

namespace
{

int digitsFrom(const QString &text, int position)
{
    int count = 0;
    while (position + count < text.size() && text[position + count] >= QLatin1Char('0') &&
           text[position + count] <= QLatin1Char('9'))
        ++count;
    return count;
}

/// An optional sign, digits, a point, one or two digits.
void requireNumber(const QString &text)
{
    const bool hasSign = text.startsWith(QLatin1Char('-')) || text.startsWith(QLatin1Char('+'));
    const int start = hasSign ? 1 : 0;
    const int whole = digitsFrom(text, start);
    require(whole > 0 && text.size() > start + whole && text[start + whole] == QLatin1Char('.'));
    const int fraction = digitsFrom(text, start + whole + 1);
    require((fraction == 1 || fraction == 2) && text.size() == start + whole + 1 + fraction);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const bool valid = normalizeNumberText(text);
    requireNumber(text);
    QString again = text;
    require(normalizeNumberText(again));
    require(!valid || again == text);
    return 0;
}
