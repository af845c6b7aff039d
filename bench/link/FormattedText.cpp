#include "FormattedText.h"

#include <clocale>
#include <cstdio>

namespace
{

/// The "C" locale for this thread, as long as it lives.
class PlainLocale
{
public:
    PlainLocale()
        : m_before(uselocale(plain()))
    {
    }
    ~PlainLocale() { uselocale(m_before); }
    PlainLocale(const PlainLocale &) = delete;
    PlainLocale &operator=(const PlainLocale &) = delete;

private:
    static locale_t plain()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t m_before;
};

} // namespace

std::string formattedText(const char *format, va_list values)
{
    const PlainLocale plain;
    va_list again;
    va_copy(again, values);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0)
        return std::string();
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, values);
    text.pop_back();
    return text;
}
