#pragma once

#include "RoomTrafoData.h"

#include <QByteArray>

#include <cstring>
#include <string>
#include <type_traits>

/// What was read, bit by bit, so that two readings can be compared, NaN included.
class Transcript
{
public:
    template <typename Value>
    Transcript &note(Value value)
    {
        static_assert(std::is_arithmetic_v<Value> || std::is_enum_v<Value>);
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        m_text.append(bytes, sizeof value);
        return *this;
    }

    Transcript &note(const QByteArray &text)
    {
        note(text.size());
        m_text.append(text.constData(), static_cast<std::size_t>(text.size()));
        return *this;
    }

    Transcript &note(const RoomTrafoData &data)
    {
        for (const double number : data.rotation)
            note(number);
        for (const double number : data.translation)
            note(number);
        return note(data.scaling);
    }

    const std::string &text() const { return m_text; }

private:
    std::string m_text;
};
