#pragma once

#include "VelmarParser.h"

#include <bitset>
#include <vector>

/// Tells a press of a button from a button that is held.
///
/// A press is a button that is set and was not set in the record before of the same tool or device; nothing
/// is pressed before the first record.
class ButtonWatch
{
public:
    /// Begins anew, with nothing pressed.
    void forget();

    /// Looks at the buttons of a tool (numbered from 1) and of every hand-held device; to be called once
    /// after each record. Joysticks do not count.
    void look(const VelmarParser &parser, int tool);

    /// A button was pressed between the last two looks.
    [[nodiscard]] bool isPressed() const { return m_pressed; }

private:
    using Buttons = std::bitset<recordButtonPlaces>;

    void take(Buttons &known, const Buttons &now);

    Buttons m_tool;
    std::vector<Buttons> m_handhelds;
    bool m_pressed = false;
};
