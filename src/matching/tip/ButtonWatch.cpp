#include "ButtonWatch.h"

namespace
{

/// The first flag of a tool tells that the controller measures; the next ones are the tool's buttons.
constexpr int firstToolButton = 1;
constexpr int lastToolButton = 3;

std::bitset<recordButtonPlaces> buttonsOf(const MeasurementToolRecord &tool)
{
    std::bitset<recordButtonPlaces> set;
    for (std::size_t place = firstToolButton; place <= lastToolButton; ++place)
        set[place] = tool.flags[place] == 1;
    return set;
}

std::bitset<recordButtonPlaces> buttonsOf(const HandheldRecord &device)
{
    std::bitset<recordButtonPlaces> set;
    for (std::size_t place = 0; place < set.size(); ++place)
        set[place] = device.buttons[place] > 0;
    return set;
}

} // namespace

void ButtonWatch::forget()
{
    m_tool.reset();
    m_handhelds.clear();
    m_pressed = false;
}

void ButtonWatch::look(const VelmarParser &parser, int tool)
{
    m_pressed = false;
    for (int index = 0; index < parser.measurementToolCount(); ++index) {
        const MeasurementToolRecord *record = parser.measurementTool(index);
        if (record->id + 1 == tool)
            take(m_tool, buttonsOf(*record));
    }
    m_handhelds.resize(static_cast<std::size_t>(parser.handheldCount()));
    for (int index = 0; index < parser.handheldCount(); ++index)
        take(m_handhelds[static_cast<std::size_t>(index)], buttonsOf(*parser.handheld(index)));
}

void ButtonWatch::take(Buttons &known, const Buttons &now)
{
    m_pressed = m_pressed || (now & ~known).any();
    known = now;
}
