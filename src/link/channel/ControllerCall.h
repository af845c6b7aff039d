#pragma once

#include "IOManager.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <optional>

/// One call on the command channel: made, its answer taken over, a failure reported; for the sources of the
/// accesses alone.
///
/// Every operation takes the call as a lambda that spells the host's operation, the format and the values in
/// one expression: only there does the compiler check the values against the format. A missing channel counts
/// as a failure. The whole lives on the stack, so the host may destroy whoever made the call while it lasts.
class ControllerCall
{
public:
    /// `failure` is what the host is told when the call fails; null for nothing.
    explicit ControllerCall(IOManager *commands, const char *failure = nullptr)
        : m_commands(commands)
        , m_failure(failure)
    {
    }

    /// `call(host)` returns the host's result.
    template <typename Call>
    bool succeeds(Call call) const
    {
        return reported(m_commands != nullptr && call(*m_commands) == 0);
    }

    /// `call(host, buffer)` fills the buffer; the text is taken over only on success.
    template <typename Call>
    std::optional<QByteArray> text(Call call) const
    {
        const Answer answer = ask(call);
        return reported(answer.succeeded) ? std::make_optional(answer.text) : std::nullopt;
    }

    /// What a raw command left in the buffer, whatever its result; nothing is reported.
    template <typename Call>
    QByteArray answer(Call call) const
    {
        return ask(call).text;
    }

    /// Whether a raw command is confirmed by its answer, whatever its result.
    template <typename Call>
    bool isConfirmed(Call call) const
    {
        constexpr auto confirmation = "velmar2 ok";
        return reported(ask(call).text == confirmation);
    }

    /// `call(host, &value)` fills the value; it is taken over only on success.
    template <typename Value, typename Call>
    std::optional<Value> value(Call call) const
    {
        Value result{};
        const bool done = m_commands != nullptr && call(*m_commands, &result) == 0;
        return reported(done) ? std::make_optional(result) : std::nullopt;
    }

    /// A number of things of which one after another is asked for, kept from freezing the window: at most
    /// 1000, never negative.
    template <typename Call>
    std::optional<int> count(Call call) const
    {
        constexpr int largest = 1000;
        const std::optional<int> number = value<int>(call);
        return number ? std::make_optional(std::clamp(*number, 0, largest)) : std::nullopt;
    }

    /// Tells the host something; a null channel is told nothing.
    static void report(IOManager *commands, const char *message);

private:
    struct Answer {
        bool succeeded = false;
        QByteArray text;
    };

    template <typename Call>
    Answer ask(Call call) const
    {
        constexpr std::size_t answerSize = 1024; // room for every answer of a controller and to spare
        std::array<char, answerSize> buffer{};
        if (m_commands == nullptr)
            return {};
        const bool succeeded = call(*m_commands, buffer.data()) == 0;
        buffer.back() = '\0';
        return {succeeded, QByteArray(buffer.data())};
    }

    bool reported(bool done) const;

    IOManager *m_commands;
    const char *m_failure;
};
