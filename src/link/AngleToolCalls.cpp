#include "AngleToolCalls.h"

#include "ControllerCall.h"
#include "ControllerChannel.h"
#include "CoordinateTypeName.h"
#include "SharedCalls.h"

namespace
{

constexpr double defaultRoomDurationSeconds = 30.0;

using Distances = std::array<double, 3>;

bool suitsAngleTool(const QByteArray &identifier)
{
    return identifier != CoordinateTypeName::firstCamera && identifier != CoordinateTypeName::midCamera;
}

int numberOfCoordinateTypes(const ControllerChannel &channel)
{
    return channel.reporting("Error: Unable to get number of coordinate system types")
        .count([](IOManager &host, int *value) {
            return host.getParameterInt(value, "roomcal number_of_available_coordinate_types");
        })
        .value_or(0);
}

ControllerCall readingCoordinateType(const ControllerChannel &channel)
{
    return channel.reporting("Error: Unable to get coordinate type");
}

std::optional<QByteArray> identifierOf(const ControllerChannel &channel, int number)
{
    return readingCoordinateType(channel).text([number](IOManager &host, char *answer) {
        return host.getParameter(answer, "roomcal available_coordinate_type t%02d", number);
    });
}

std::optional<QByteArray> descriptionOf(const ControllerChannel &channel, const QByteArray &identifier)
{
    return channel.reporting("Error: Unable to get coordinate type description")
        .text([&identifier](IOManager &host, char *answer) {
            return host.getParameter(answer, "roomcal available_coordinate_type_desc %s",
                                     identifier.constData());
        });
}

ControllerCall settingRoomDuration(const ControllerChannel &channel)
{
    return channel.reporting("Error: Cannot set room calibration duration");
}

} // namespace

namespace AngleToolCalls
{

std::vector<OfferedCoordinateType> coordinateTypes(const ControllerChannel &channel)
{
    std::vector<OfferedCoordinateType> types;
    const int count = numberOfCoordinateTypes(channel);
    for (int number = 1; number <= count; ++number) {
        const std::optional<QByteArray> identifier = identifierOf(channel, number);
        if (identifier && suitsAngleTool(*identifier))
            types.push_back({*identifier, descriptionOf(channel, *identifier).value_or(*identifier)});
    }
    return types;
}

std::optional<Distances> distances(const ControllerChannel &channel)
{
    return channel.reporting("Error: Unable to get values of last used angle tool")
        .value<Distances>([](IOManager &host, Distances *d) {
            return host.getParameterDoubles(d->data(), int(d->size()), "roomcal angle");
        });
}

std::optional<double> height(const ControllerChannel &channel)
{
    if (!channel.supports(ControllerFeature::AngleToolCalibration))
        return std::nullopt;
    return channel.reporting("Error: Unable to angle tool height")
        .value<double>([](IOManager &host, double *value) {
            return host.getParameterDouble(value, "roomcal angle_height");
        });
}

void setDistances(const ControllerChannel &channel, const Distances &d)
{
    channel.reporting("Error: Unable to set roomcalibration angle tool").succeeds([&d](IOManager &host) {
        return host.setParameter("roomcal angle %.3f %.3f %.3f", d[0], d[1], d[2]);
    });
}

void setHeight(const ControllerChannel &channel, double height)
{
    channel.reporting("Error: Unable to set angle tool height").succeeds([height](IOManager &host) {
        return host.setParameter("roomcal angle_height %.3f", height);
    });
}

void setCoordinateType(const ControllerChannel &channel, const QByteArray &identifier)
{
    channel.reporting("Error: Cannot set room calibration coordinate system")
        .succeeds([&identifier](IOManager &host) {
            return host.setParameter("roomcal coordinate_type %s", identifier.constData());
        });
}

double roomDuration(const ControllerChannel &channel)
{
    if (!channel.supports(ControllerFeature::CalibrationDuration))
        return defaultRoomDurationSeconds;
    return channel.reporting("Error: Cannot get information room calibration duration")
        .value<double>(
            [](IOManager &host, double *value) { return host.getParameterDouble(value, "roomcal duration"); })
        .value_or(defaultRoomDurationSeconds);
}

void shortenRoomDuration(const ControllerChannel &channel)
{
    settingRoomDuration(channel).succeeds(
        [](IOManager &host) { return host.setParameter("roomcal duration 5.0"); });
}

void restoreRoomDuration(const ControllerChannel &channel, double seconds)
{
    settingRoomDuration(channel).succeeds(
        [seconds](IOManager &host) { return host.setParameter("roomcal duration %.1f", seconds); });
}

void restartTracking(const ControllerChannel &channel)
{
    const Activity now = SharedCalls::activity(channel.silently());
    if (now != Activity::None && now != Activity::Error)
        return;
    if (SharedCalls::trackingAvailable(channel.silently()) == Reply::Yes)
        SharedCalls::startTracking(channel.silently());
}

QByteArray coordinateType(const ControllerChannel &channel)
{
    return SharedCalls::coordinateType(readingCoordinateType(channel)).value_or(CoordinateTypeName::normal);
}

} // namespace AngleToolCalls
