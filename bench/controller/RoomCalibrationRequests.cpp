#include "ControllerRequests.h"
#include "SimLimits.h"
#include "SimMachine.h"
#include "SimText.h"

#include <algorithm>

namespace
{

constexpr double shortestDurationSeconds = 1.0;

struct CoordinateType {
    std::string_view identifier;
    std::string_view description;
};

constexpr std::array<CoordinateType, 5> coordinateTypes = {{{"normal", "Normal (z axis up)"},
                                                            {"powerwall", "Powerwall (y axis up)"},
                                                            {"powerwall_standing", "Powerwall, standing"},
                                                            {"mid_camera", "Middle camera"},
                                                            {"first_camera", "First camera"}}};

const CoordinateType *coordinateType(std::string_view identifier)
{
    const auto *found =
        std::find_if(coordinateTypes.begin(), coordinateTypes.end(),
                     [identifier](const CoordinateType &type) { return type.identifier == identifier; });
    return found == coordinateTypes.end() ? nullptr : found;
}

SimReply type(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(machine.state.roomCalibration.type);
}

SimReply currentCoordinateType(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(machine.state.roomCalibration.coordinateType);
}

SimReply lastCoordinateType(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(machine.state.lastCoordinateType);
}

SimReply coordinateTypeCount(SimMachine &, const SimArguments &)
{
    return SimReply::value(std::to_string(coordinateTypes.size()));
}

SimReply availableCoordinateType(SimMachine &, const SimArguments &arguments)
{
    const auto index = arguments.index(0, coordinateTypes.size());
    if (!index)
        return SimReply::noSuch("coordinate type");
    return SimReply::value(std::string(coordinateTypes[*index].identifier));
}

SimReply coordinateTypeDescription(SimMachine &, const SimArguments &arguments)
{
    const CoordinateType *found = coordinateType(arguments.words.at(0));
    if (found == nullptr)
        return SimReply::noSuch("coordinate type");
    return SimReply::value('"' + std::string(found->description) + '"');
}

SimReply angle(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(
        SimText::joined(machine.state.roomCalibration.anglesMm, SimLimits::millimetreDecimals));
}

SimReply angleHeight(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(
        SimText::fixed(machine.state.roomCalibration.angleHeightMm, SimLimits::millimetreDecimals));
}

SimReply duration(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::compact(machine.state.roomCalibration.durationSeconds));
}

SimReply setType(SimMachine &machine, const SimArguments &arguments)
{
    const std::string wanted(arguments.words.at(0));
    const bool known =
        wanted == "angle_wand" || (wanted == "angle_no_wand" && machine.state.angleToolSupported);
    if (!known)
        return SimReply::badValue();
    machine.state.roomCalibration.type = wanted;
    return SimReply::ok();
}

SimReply setAngle(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(3);
    const auto isPositive = [](double value) { return value > 0.0; };
    if (!numbers || !std::all_of(numbers->begin(), numbers->end(), isPositive))
        return SimReply::badValue();
    std::copy(numbers->begin(), numbers->end(), machine.state.roomCalibration.anglesMm.begin());
    return SimReply::ok();
}

SimReply setAngleHeight(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(1);
    if (!numbers || numbers->at(0) < 0.0)
        return SimReply::badValue();
    machine.state.roomCalibration.angleHeightMm = numbers->at(0);
    return SimReply::ok();
}

SimReply setDuration(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(1);
    if (!numbers || numbers->at(0) < shortestDurationSeconds ||
        numbers->at(0) > SimLimits::longestDurationSeconds)
        return SimReply::badValue();
    machine.state.roomCalibration.durationSeconds = numbers->at(0);
    return SimReply::ok();
}

SimReply setCoordinateType(SimMachine &machine, const SimArguments &arguments)
{
    if (coordinateType(arguments.words.at(0)) == nullptr)
        return SimReply::badValue();
    machine.state.roomCalibration.coordinateType = std::string(arguments.words.at(0));
    return SimReply::ok();
}

SimReply wrongCount(SimMachine &, const SimArguments &)
{
    return SimReply::badValue();
}

SimReply accept(SimMachine &machine, const SimArguments &)
{
    SimState &state = machine.state;
    state.base = state.newCalibration->base;
    state.lastCoordinateType = state.newCalibration->coordinateType;
    state.extra = SimExtra();
    state.newCalibration.reset();
    return SimReply::ok();
}

} // namespace

std::vector<SimRequestRow> roomCalibrationRequests()
{
    const SimGuards unlocked = {SimGuard::Unlocked};
    return {{"get roomcal type", type},
            {"get roomcal coordinate_type", currentCoordinateType},
            {"get roomcal last_coordinate_type", lastCoordinateType},
            {"get roomcal number_of_available_coordinate_types", coordinateTypeCount},
            {"get roomcal available_coordinate_type t#", availableCoordinateType},
            {"get roomcal available_coordinate_type_desc *", coordinateTypeDescription},
            {"get roomcal angle", angle},
            {"get roomcal angle_height", angleHeight},
            {"get roomcal duration", duration},
            {"set roomcal type *", setType, unlocked},
            {"set roomcal type ...", wrongCount},
            {"set roomcal angle ...", setAngle, unlocked},
            {"set roomcal angle_height ...", setAngleHeight, unlocked},
            {"set roomcal duration ...", setDuration, unlocked},
            {"set roomcal coordinate_type *", setCoordinateType, unlocked},
            {"set roomcal coordinate_type ...", wrongCount},
            {"roomcal accept_new_calibration",
             accept,
             {SimGuard::NotCalibrating, SimGuard::NewCalibration, SimGuard::Unlocked}}};
}
