#pragma once

#include "SimMachine.h"
#include "SimRequest.h"

/// Finds the element that the first number of a line names and lets `use` work on it; `name` says in the
/// refusal what there is no such of.
template <typename List, typename Use>
SimReply withElement(List &list, const char *name, const SimArguments &arguments, Use use)
{
    const auto index = arguments.index(0, list.size());
    return index ? use(list[*index]) : SimReply::noSuch(name);
}

template <typename Use>
SimReply withTool(SimMachine &machine, const SimArguments &arguments, Use use)
{
    return withElement(machine.room.tools, "tool", arguments, use);
}

template <typename Use>
SimReply withCamera(SimMachine &machine, const SimArguments &arguments, Use use)
{
    return withElement(machine.room.cameras, "camera", arguments, use);
}

template <typename Use>
SimReply withPoint(SimMachine &machine, const SimArguments &arguments, Use use)
{
    return withElement(machine.room.workpiece.points, "point", arguments, use);
}
