#pragma once

#include "IOManager.h"

#include <cstddef>
#include <string>
#include <vector>

/// A host whose controller gives the lines of one text as its answers, one after another and over again.
///
/// A line that begins with an exclamation mark is what a failing call leaves behind. An answer as long as the
/// buffer leaves it without an end. Numbers are read as strtod and strtol read them, NaN and infinity
/// included; a call for several numbers that finds too few fills in those that it found, and fails. After
/// some calls every further one fails, so that a large count costs no time.
class AnswerHost final : public IOManager
{
public:
    struct Answer {
        std::string text;
        bool fails = false;

        /// What a reader of the buffer sees of it.
        std::string visible() const { return text.substr(0, text.find('\0')); }
    };

    explicit AnswerHost(const std::string &lines);
    virtual ~AnswerHost() = default;

    /// The next call gets the n-th answer, and what was noted is forgotten.
    void begin(std::size_t n);

    /// What the next call will be told, as far as a reader of the buffer can see it.
    Answer next() const;

    const std::vector<Answer> &answers() const { return m_answers; }
    std::size_t calls() const { return m_calls; }
    std::size_t reports() const { return m_reports; }
    /// The parameters that were written, formatted.
    const std::vector<std::string> &written() const { return m_written; }

    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    int sendCommand(char *answer, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    void reserved5() override {}
    int getParameter(char *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterInt(int *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDouble(double *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterBool(bool *value, const char *format, ...) override HOST_PRINTF_FORMAT(3, 4);
    int getParameterDoubles(double *values, int count, const char *format, ...) override
        HOST_PRINTF_FORMAT(4, 5);
    void reserved11() override {}
    int setParameter(const char *format, ...) override HOST_PRINTF_FORMAT(2, 3);
    void addRequester(const char *, Requester *) override {}
    void removeRequester(const char *, Requester *) override {}
    void reserved15() override {}
    void releaseRequester(Requester *) override {}
    void reportError(const char *category, const char *backend, int level, const char *message) override;

private:
    /// Counts a call; true when it is to fail without further ado.
    bool isTired();
    const Answer &take();
    int text(char *buffer);

    std::vector<Answer> m_answers;
    std::size_t m_next = 0;
    std::size_t m_calls = 0;
    std::size_t m_reports = 0;
    std::vector<std::string> m_written;
};
