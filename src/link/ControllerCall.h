#pragma once

#include "IOManager.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <optional>

/// How a call on the command channel is made and its answer taken over; for the sources of ControllerAccess
/// alone.
namespace ControllerCall
{

/// Room for every answer of a controller and to spare.
constexpr std::size_t answerSize = 1024;

/// The answer that confirms a raw command.
constexpr auto accepted = "velmar2 ok";

/// `call(channel)` returns the channel's result; a missing channel counts as a failure.
template <typename Call>
bool succeeds(IOManager *channel, Call call)
{
    return channel != nullptr && call(*channel) == 0;
}

/// `call(channel, buffer)` fills the buffer; the text is taken over only on success.
template <typename Call>
std::optional<QByteArray> text(IOManager *channel, Call call)
{
    std::array<char, answerSize> buffer{};
    if (channel == nullptr || call(*channel, buffer.data()) != 0)
        return std::nullopt;
    buffer.back() = '\0';
    return QByteArray(buffer.data());
}

/// `call(channel, &value)` fills the value; it is taken over only on success.
template <typename Value, typename Call>
std::optional<Value> value(IOManager *channel, Call call)
{
    Value result{};
    if (channel == nullptr || call(*channel, &result) != 0)
        return std::nullopt;
    return result;
}

/// What a raw command left in the buffer, whatever its result; for commands of which the answer alone
/// decides.
template <typename Call>
QByteArray answer(IOManager *channel, Call call)
{
    std::array<char, answerSize> buffer{};
    if (channel == nullptr)
        return QByteArray();
    (void)call(*channel, buffer.data());
    buffer.back() = '\0';
    return QByteArray(buffer.data());
}

/// A number of things of which one after another is asked for, kept from freezing the window.
inline int bounded(int count)
{
    constexpr int largest = 1000;
    return std::clamp(count, 0, largest);
}

} // namespace ControllerCall
