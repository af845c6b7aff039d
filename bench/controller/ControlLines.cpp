#include "ControlLines.h"

#include "SimRoom.h"
#include "SimText.h"

namespace ControlLines
{

SimReply expected(const char *what)
{
    return SimReply::expected(what);
}

std::optional<SimPose> pose(const SimArguments &arguments)
{
    const auto v = arguments.reals(6);
    if (!v)
        return std::nullopt;
    return SimPose{{v->at(0), v->at(1), v->at(2)}, SimRotation::fromDegrees(v->at(3), v->at(4), v->at(5))};
}

std::optional<bool> truth(const SimArguments &arguments)
{
    if (arguments.values.size() != 1)
        return std::nullopt;
    return SimText::truth(arguments.values[0]);
}

std::optional<double> number(const SimArguments &arguments, double smallest, double largest)
{
    const auto values = arguments.reals(1);
    if (!values || values->at(0) < smallest || values->at(0) > largest)
        return std::nullopt;
    return values->at(0);
}

std::optional<int> count(const SimArguments &arguments, int smallest, int largest)
{
    if (arguments.values.size() != 1)
        return std::nullopt;
    const std::optional<int> value = SimText::integer(arguments.values[0]);
    return value && *value >= smallest && *value <= largest ? value : std::nullopt;
}

SimReply operate(SimButton &button, std::string_view action)
{
    if (action == "press")
        button.held = true;
    else if (action == "release")
        button.held = false;
    else if (action == "click")
        button.clicked = true;
    else
        return expected("press, release or click");
    return SimReply::ok();
}

} // namespace ControlLines
