#include "ControllerAccess.h"

#include "ControllerCall.h"
#include "IOManager.h"

// The operations that set up the room calibration with the angle tool and take over its result.

namespace
{

constexpr double defaultRoomDurationSeconds = 30.0;

std::optional<QByteArray> coordinateTypeIdentifier(IOManager *commands, int number)
{
    return ControllerCall::text(commands, [number](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "roomcal available_coordinate_type t%02d", number);
    });
}

std::optional<QByteArray> coordinateTypeDescription(IOManager *commands, const QByteArray &identifier)
{
    return ControllerCall::text(commands, [&identifier](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "roomcal available_coordinate_type_desc %s",
                                    identifier.constData());
    });
}

bool isOfferedForAngleTool(const QByteArray &identifier)
{
    return identifier != "first_camera" && identifier != "mid_camera";
}

} // namespace

int ControllerAccess::numberOfCoordinateTypes() const
{
    const auto count = ControllerCall::value<int>(m_commands, [](IOManager &channel, int *value) {
        return channel.getParameterInt(value, "roomcal number_of_available_coordinate_types");
    });
    reportUnless(count.has_value(), "Error: Unable to get number of coordinate system types");
    return ControllerCall::bounded(count.value_or(0));
}

std::vector<OfferedCoordinateType> ControllerAccess::coordinateTypesForAngleTool() const
{
    std::vector<OfferedCoordinateType> types;
    const int count = numberOfCoordinateTypes();
    for (int number = 1; number <= count; ++number) {
        const std::optional<QByteArray> identifier = coordinateTypeIdentifier(m_commands, number);
        if (!reportUnless(identifier.has_value(), "Error: Unable to get coordinate type") ||
            !isOfferedForAngleTool(*identifier))
            continue;
        const auto description = coordinateTypeDescription(m_commands, *identifier);
        reportUnless(description.has_value(), "Error: Unable to get coordinate type description");
        types.push_back({*identifier, description.value_or(*identifier)});
    }
    return types;
}

QByteArray ControllerAccess::chosenCoordinateType() const
{
    const std::optional<QByteArray> type = presentCoordinateType();
    reportUnless(type.has_value(), "Error: Unable to get coordinate type");
    return type.value_or(QByteArrayLiteral("normal"));
}

std::optional<std::array<double, 3>> ControllerAccess::angleToolDistances() const
{
    using Distances = std::array<double, 3>;
    const auto distances = ControllerCall::value<Distances>(m_commands, [](IOManager &channel, Distances *d) {
        return channel.getParameterDoubles(d->data(), int(d->size()), "roomcal angle");
    });
    reportUnless(distances.has_value(), "Error: Unable to get values of last used angle tool");
    return distances;
}

std::optional<double> ControllerAccess::angleToolHeight() const
{
    if (!supports(ControllerFeature::AngleToolCalibration))
        return std::nullopt;
    const auto height = ControllerCall::value<double>(m_commands, [](IOManager &channel, double *value) {
        return channel.getParameterDouble(value, "roomcal angle_height");
    });
    reportUnless(height.has_value(), "Error: Unable to angle tool height");
    return height;
}

bool ControllerAccess::chooseAngleToolCalibration() const
{
    const bool done = ControllerCall::succeeds(
        m_commands, [](IOManager &channel) { return channel.setParameter("roomcal type angle_no_wand"); });
    return reportUnless(done, "Error: Cannot set room calibration type to only angle tool");
}

void ControllerAccess::setAngleToolDistances(const std::array<double, 3> &distances) const
{
    const bool done = ControllerCall::succeeds(m_commands, [&distances](IOManager &channel) {
        return channel.setParameter("roomcal angle %.3f %.3f %.3f", distances[0], distances[1], distances[2]);
    });
    reportUnless(done, "Error: Unable to set roomcalibration angle tool");
}

void ControllerAccess::setAngleToolHeight(double height) const
{
    const bool done = ControllerCall::succeeds(m_commands, [height](IOManager &channel) {
        return channel.setParameter("roomcal angle_height %.3f", height);
    });
    reportUnless(done, "Error: Unable to set angle tool height");
}

double ControllerAccess::roomCalibrationDuration() const
{
    if (!supports(ControllerFeature::CalibrationDuration))
        return defaultRoomDurationSeconds;
    const auto duration = ControllerCall::value<double>(m_commands, [](IOManager &channel, double *value) {
        return channel.getParameterDouble(value, "roomcal duration");
    });
    reportUnless(duration.has_value(), "Error: Cannot get information room calibration duration");
    return duration.value_or(defaultRoomDurationSeconds);
}

void ControllerAccess::shortenRoomCalibration() const
{
    const bool done = ControllerCall::succeeds(
        m_commands, [](IOManager &channel) { return channel.setParameter("roomcal duration 5.0"); });
    reportUnless(done, "Error: Cannot set room calibration duration");
}

void ControllerAccess::restoreRoomCalibrationDuration(double seconds) const
{
    const bool done = ControllerCall::succeeds(m_commands, [seconds](IOManager &channel) {
        return channel.setParameter("roomcal duration %.1f", seconds);
    });
    reportUnless(done, "Error: Cannot set room calibration duration");
}

void ControllerAccess::chooseCoordinateType(const QByteArray &identifier) const
{
    const bool done = ControllerCall::succeeds(m_commands, [&identifier](IOManager &channel) {
        return channel.setParameter("roomcal coordinate_type %s", identifier.constData());
    });
    reportUnless(done, "Error: Cannot set room calibration coordinate system");
}

void ControllerAccess::noteCalibrationStarted() const
{
    report("calibration started");
}

void ControllerAccess::noteCalibrationCancelled() const
{
    report("room adjustment according angle tool canceled");
}

bool ControllerAccess::acceptNewCalibration() const
{
    const bool done = ControllerCall::answer(m_commands, [](IOManager &channel, char *answer) {
                          return channel.sendCommand(answer, "velmar2 roomcal accept_new_calibration");
                      }) == ControllerCall::accepted;
    return reportUnless(done, "Unable to set new calibration to Controller");
}

void ControllerAccess::restartTrackingAfterCalibration() const
{
    const Activity now = activity();
    if (now != Activity::None && now != Activity::Error)
        return;
    if (trackingAvailable() == Reply::Yes)
        sendTrackingStart();
}
