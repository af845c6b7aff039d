#include "AnswerHost.h"

#include "FormattedText.h"
#include "Requirement.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace
{

constexpr std::size_t bufferSize = 1024;
constexpr std::size_t mostCalls = 100;

locale_t plainLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

double real(const char *text, char **end)
{
    return strtod_l(text, end, plainLocale());
}

} // namespace

AnswerHost::AnswerHost(const std::string &lines)
{
    for (std::size_t begin = 0; begin <= lines.size();) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        const bool fails = begin < end && lines[begin] == '!';
        const std::size_t from = fails ? begin + 1 : begin;
        m_answers.push_back({lines.substr(from, std::min(end - from, bufferSize)), fails});
        begin = end + 1;
    }
}

void AnswerHost::begin(std::size_t n)
{
    m_next = n;
    m_calls = 0;
    m_reports = 0;
    m_written.clear();
}

bool AnswerHost::isTired()
{
    return m_calls++ >= mostCalls;
}

AnswerHost::Answer AnswerHost::next() const
{
    if (m_calls >= mostCalls)
        return {std::string(), true};
    const Answer &answer = m_answers[m_next % m_answers.size()];
    return {answer.visible().substr(0, bufferSize - 1), answer.fails};
}

const AnswerHost::Answer &AnswerHost::take()
{
    return m_answers[m_next++ % m_answers.size()];
}

int AnswerHost::text(char *buffer)
{
    const Answer &answer = take();
    // Without an end of its own: the buffer was cleared, or is full.
    std::copy(answer.text.begin(), answer.text.end(), buffer);
    return answer.fails ? 1 : 0;
}

int AnswerHost::sendCommand(char *answer, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(line, format);
    require(line.rfind("velmar2 ", 0) == 0);
    return text(answer);
}

int AnswerHost::getParameter(char *value, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(name, format);
    return text(value);
}

int AnswerHost::getParameterInt(int *value, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(name, format);
    const Answer &answer = take();
    *value = int(std::clamp(std::strtol(answer.text.c_str(), nullptr, 10), long(INT_MIN), long(INT_MAX)));
    return answer.fails ? 2 : 0;
}

int AnswerHost::getParameterDouble(double *value, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(name, format);
    const Answer &answer = take();
    *value = real(answer.text.c_str(), nullptr);
    return answer.fails ? -1 : 0;
}

int AnswerHost::getParameterBool(bool *value, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(name, format);
    const Answer &answer = take();
    *value = answer.text == "yes";
    return answer.fails ? INT_MIN : 0;
}

int AnswerHost::getParameterDoubles(double *values, int count, const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(name, format);
    require(count == 3 || count == 9);
    const Answer &answer = take();
    const char *from = answer.text.c_str();
    int found = 0;
    for (char *end = nullptr; found < count; ++found, from = end) {
        const double number = real(from, &end);
        if (end == from)
            break;
        values[found] = number;
    }
    return answer.fails || found < count ? 256 : 0;
}

int AnswerHost::setParameter(const char *format, ...)
{
    if (isTired())
        return 1;
    FORMATTED_TEXT(written, format);
    m_written.push_back(written);
    return take().fails ? 1 : 0;
}

void AnswerHost::reportError(const char *category, const char *backend, int level, const char *message)
{
    require(std::strcmp(category, "standard") == 0 && std::strcmp(backend, "VELMAR3") == 0 && level == 1);
    require(*message != '\0');
    ++m_reports;
}
