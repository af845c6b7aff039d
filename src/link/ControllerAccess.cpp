#include "ControllerAccess.h"

#include "ControllerCall.h"
#include "IOManager.h"

#include <QList>

#include <algorithm>

namespace
{

constexpr auto category = "standard";
constexpr auto backend = "VELMAR3";
constexpr int level = 1;

constexpr std::array<const char *, 5> recordKinds = {"ts", "6dmt2", "6dmt", "6df2", "6df"};

/// Takes the first `count` numbers of a text that is split at single blanks; nothing when one does not
/// convert.
template <std::size_t count>
std::optional<std::array<double, count>> numbers(const QByteArray &text)
{
    const QList<QByteArray> words = text.split(' ');
    if (words.size() < int(count))
        return std::nullopt;
    std::array<double, count> result{};
    for (std::size_t i = 0; i < count; ++i) {
        bool converted = false;
        result[i] = words[int(i)].toDouble(&converted);
        if (!converted)
            return std::nullopt;
    }
    return result;
}

/// What would be printed as a negative zero becomes a plain one.
double plainZero(double value, double halfDecimal)
{
    return value < 0.0 && value > -halfDecimal ? 0.0 : value + 0.0;
}

Reply replyOf(const std::optional<QByteArray> &answer)
{
    if (!answer)
        return Reply::Failed;
    if (*answer == "yes")
        return Reply::Yes;
    return *answer == "no" ? Reply::No : Reply::Other;
}

Activity activityOf(const std::optional<QByteArray> &answer)
{
    if (!answer)
        return Activity::Failed;
    if (*answer == "mea")
        return Activity::Measuring;
    if (*answer == "cal")
        return Activity::Calibrating;
    if (*answer == "err")
        return Activity::Error;
    return *answer == "none" ? Activity::None : Activity::Other;
}

CoordinateType coordinateTypeOf(const QByteArray &identifier)
{
    if (identifier == "normal")
        return CoordinateType::Normal;
    if (identifier == "powerwall")
        return CoordinateType::Powerwall;
    if (identifier == "powerwall_standing")
        return CoordinateType::PowerwallStanding;
    if (identifier == "mid_camera")
        return CoordinateType::MidCamera;
    return identifier == "none" ? CoordinateType::None : CoordinateType::Unknown;
}

bool commandTrackingStart(IOManager *commands)
{
    return ControllerCall::text(commands,
                                [](IOManager &channel, char *answer) {
                                    return channel.sendCommand(answer, "velmar2 tracking start");
                                })
        .has_value();
}

bool commandTrackingStop(IOManager *commands)
{
    return ControllerCall::text(commands,
                                [](IOManager &channel, char *answer) {
                                    return channel.sendCommand(answer, "velmar2 tracking stop");
                                })
        .has_value();
}

std::optional<QByteArray> roomText(IOManager *commands, int camera)
{
    return ControllerCall::text(commands, [camera](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "tracking room c%2.2d", camera);
    });
}

std::optional<bool> tipCalibrated(IOManager *commands, int tool)
{
    return ControllerCall::value<bool>(commands, [tool](IOManager &channel, bool *value) {
        return channel.getParameterBool(value, "measurementtool tip_calibrated b%02d", tool);
    });
}

bool writeRotation(IOManager *commands, const std::array<double, 9> &rotation)
{
    std::array<double, 9> r{};
    std::transform(rotation.begin(), rotation.end(), r.begin(),
                   [](double value) { return plainZero(value, rotationHalfDecimal); });
    return ControllerCall::succeeds(commands, [&r](IOManager &channel) {
        return channel.setParameter("tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f",
                                    r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8]);
    });
}

bool writeTranslation(IOManager *commands, const std::array<double, 3> &t)
{
    return ControllerCall::succeeds(commands, [&t](IOManager &channel) {
        return channel.setParameter(
            "tracking extra_translation %.3f %.3f %.3f", plainZero(t[0], translationHalfDecimal),
            plainZero(t[1], translationHalfDecimal), plainZero(t[2], translationHalfDecimal));
    });
}

bool writeScaling(IOManager *commands, double scaling)
{
    return ControllerCall::succeeds(commands, [scaling](IOManager &channel) {
        return channel.setParameter("tracking extra_scaling %.5f", scaling);
    });
}

} // namespace

ControllerAccess::ControllerAccess(IOManager *commands, const BackendVersions *versions)
    : m_commands(commands)
    , m_versions(versions)
{
}

bool ControllerAccess::supports(ControllerFeature feature) const
{
    return ControllerVersion::supports(m_versions, feature);
}

void ControllerAccess::report(const char *message) const
{
    if (m_commands != nullptr)
        m_commands->reportError(category, backend, level, message);
}

bool ControllerAccess::reportUnless(bool success, const char *message) const
{
    if (!success)
        report(message);
    return success;
}

void ControllerAccess::subscribe(Requester *requester) const
{
    if (m_commands == nullptr)
        return;
    for (const char *kind : recordKinds)
        m_commands->addRequester(kind, requester);
}

void ControllerAccess::unsubscribe(Requester *requester) const
{
    if (m_commands == nullptr)
        return;
    for (const char *kind : recordKinds)
        m_commands->removeRequester(kind, requester);
}

Reply ControllerAccess::trackingAvailable() const
{
    return replyOf(ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "tracking available");
    }));
}

Activity ControllerAccess::activity() const
{
    return activityOf(ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "status active");
    }));
}

bool ControllerAccess::startTracking() const
{
    return reportUnless(commandTrackingStart(m_commands), "Error: Unable to start tracking");
}

bool ControllerAccess::stopTrackingIfMeasuring() const
{
    const Activity now = activity();
    if (now == Activity::Failed)
        return reportUnless(false, "Error: Unable to check tracking status");
    if (now != Activity::Measuring)
        return true;
    return reportUnless(commandTrackingStop(m_commands), "Error: Unable to stop tracking");
}

void ControllerAccess::sendTrackingStart() const
{
    (void)commandTrackingStart(m_commands);
}

void ControllerAccess::sendTrackingStop() const
{
    (void)commandTrackingStop(m_commands);
}

Reply ControllerAccess::configurationChangeable() const
{
    return replyOf(ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "config is_changeable");
    }));
}

std::optional<int> ControllerAccess::cameraCount() const
{
    const auto count = ControllerCall::value<int>(m_commands, [](IOManager &channel, int *value) {
        return channel.getParameterInt(value, "camera number_of_cameras");
    });
    return count ? std::make_optional(ControllerCall::bounded(*count)) : std::nullopt;
}

std::optional<int> ControllerAccess::numberOfCameras() const
{
    const std::optional<int> count = cameraCount();
    reportUnless(count.has_value(), "Error: Unable to get number of cameras");
    return count;
}

bool ControllerAccess::cameraHasRoom(int camera) const
{
    return ControllerCall::value<bool>(m_commands,
                                       [camera](IOManager &channel, bool *value) {
                                           return channel.getParameterBool(value, "tracking has_room c%02d",
                                                                           camera);
                                       })
        .value_or(false);
}

CameraRoom ControllerAccess::roomOfCamera(int camera) const
{
    const std::optional<QByteArray> room = roomText(m_commands, camera);
    if (!room)
        return CameraRoom::Failed;
    return *room == "none" ? CameraRoom::None : CameraRoom::Present;
}

std::array<double, 3> ControllerAccess::positionOfCamera(int camera) const
{
    const std::optional<QByteArray> room = roomText(m_commands, camera);
    reportUnless(room.has_value(), "Error: Unable to get room cal of camera");
    const QList<QByteArray> words = room.value_or(QByteArray()).split(' ');
    return {words.value(0).toDouble(), words.value(1).toDouble(), words.value(2).toDouble()};
}

RoomTrafoData ControllerAccess::roomAdjustment() const
{
    RoomTrafoData data;
    if (!supports(ControllerFeature::ExtraTransformation))
        return data;
    const auto rotation = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "tracking extra_rotation");
    });
    data.rotation = numbers<9>(rotation.value_or(QByteArray())).value_or(data.rotation);
    const auto translation = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "tracking extra_translation");
    });
    data.translation = numbers<3>(translation.value_or(QByteArray())).value_or(data.translation);
    data.scaling = extraScaling().value_or(data.scaling);
    return data;
}

void ControllerAccess::writeRoomAdjustment(const RoomTrafoData &data) const
{
    if (!supports(ControllerFeature::ExtraTransformation))
        return;
    reportUnless(writeRotation(m_commands, data.rotation), "Error: Unable to set room adjustment rotation");
    reportUnless(writeTranslation(m_commands, data.translation),
                 "Error: Unable to set room adjustment translation");
    reportUnless(writeScaling(m_commands, data.scaling), "Error: Unable to set room adjustment scaling");
}

std::optional<double> ControllerAccess::extraScaling() const
{
    return ControllerCall::value<double>(m_commands, [](IOManager &channel, double *value) {
        return channel.getParameterDouble(value, "tracking extra_scaling");
    });
}

std::optional<RoomTrafoData> ControllerAccess::extraTransformation() const
{
    RoomTrafoData data;
    const bool hasTranslation = ControllerCall::succeeds(m_commands, [&data](IOManager &channel) {
        return channel.getParameterDoubles(data.translation.data(), 3, "tracking extra_translation");
    });
    if (!reportUnless(hasTranslation, "Error: Unable to get info extra translation"))
        return std::nullopt;
    const bool hasRotation = ControllerCall::succeeds(m_commands, [&data](IOManager &channel) {
        return channel.getParameterDoubles(data.rotation.data(), 9, "tracking extra_rotation");
    });
    if (!reportUnless(hasRotation, "Error: Unable to get info extra rotation"))
        return std::nullopt;
    const std::optional<double> scaling = extraScaling();
    if (!reportUnless(scaling.has_value(), "Error: Unable to get info extra scaling"))
        return std::nullopt;
    data.scaling = *scaling;
    return data;
}

void ControllerAccess::setNeutralExtraTransformation() const
{
    const bool rotation = ControllerCall::succeeds(m_commands, [](IOManager &channel) {
        return channel.setParameter(
            "tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
            "0.00000000 0.00000000 0.00000000 1.00000000");
    });
    reportUnless(rotation, "Error: Unable to set extra rotation default");
    const bool translation = ControllerCall::succeeds(m_commands, [](IOManager &channel) {
        return channel.setParameter("tracking extra_translation 0.000 0.000 0.000");
    });
    reportUnless(translation, "Error: Unable to set extra translation default");
    const bool scaling = ControllerCall::succeeds(m_commands, [](IOManager &channel) {
        return channel.setParameter("tracking extra_scaling 1.00000");
    });
    reportUnless(scaling, "Error: Unable to set extra scaling default");
}

void ControllerAccess::restoreExtraTransformation(const RoomTrafoData &data) const
{
    reportUnless(writeRotation(m_commands, data.rotation), "Error: Unable to set extra rotation");
    reportUnless(writeTranslation(m_commands, data.translation), "Error: Unable to set extra translation");
    reportUnless(writeScaling(m_commands, data.scaling), "Error: Unable to set extra scaling");
}

QByteArray ControllerAccess::referenceTarget() const
{
    const auto target = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "tracking reference");
    });
    reportUnless(target.has_value(), "Error: Unable to get info reference target");
    return target && *target != "none" ? *target : QByteArray();
}

bool ControllerAccess::unsetReferenceTarget() const
{
    const bool done = ControllerCall::succeeds(
        m_commands, [](IOManager &channel) { return channel.setParameter("tracking reference none"); });
    return reportUnless(done, "Error: Unable to unset reference target");
}

bool ControllerAccess::restoreReferenceTarget(const QByteArray &target) const
{
    const bool done = ControllerCall::succeeds(m_commands, [&target](IOManager &channel) {
        return channel.setParameter("tracking reference %s", target.constData());
    });
    return reportUnless(done, "Error: Unable to restore reference target");
}

void ControllerAccess::checkMeasurementTool() const
{
    const auto available = ControllerCall::value<bool>(m_commands, [](IOManager &channel, bool *value) {
        return channel.getParameterBool(value, "measurementtool available");
    });
    reportUnless(available.has_value(), "Error: Unable to get info measurement tool available");
}

Reply ControllerAccess::measurementToolAvailable() const
{
    return replyOf(ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "measurementtool available");
    }));
}

int ControllerAccess::numberOfMeasurementTools() const
{
    const auto count = ControllerCall::value<int>(m_commands, [](IOManager &channel, int *value) {
        return channel.getParameterInt(value, "measurementtool number_of_tools");
    });
    reportUnless(count.has_value(), "Error : Unable to get number of measurement tools");
    return ControllerCall::bounded(count.value_or(0));
}

bool ControllerAccess::tipIsCalibrated(int tool) const
{
    const std::optional<bool> calibrated = tipCalibrated(m_commands, tool);
    reportUnless(calibrated.has_value(), "Error : Unable to get info of tip calibration");
    return calibrated.value_or(false);
}

bool ControllerAccess::tipIsCalibratedQuietly(int tool) const
{
    return tipCalibrated(m_commands, tool).value_or(false);
}

double ControllerAccess::measurementDuration(int tool) const
{
    return ControllerCall::value<double>(m_commands,
                                         [tool](IOManager &channel, double *value) {
                                             return channel.getParameterDouble(
                                                 value, "measurementtool measurement_duration b%02d", tool);
                                         })
        .value_or(defaultMeasurementSeconds);
}

double ControllerAccess::tipTolerance(int tool) const
{
    const auto tolerance =
        ControllerCall::value<double>(m_commands, [tool](IOManager &channel, double *value) {
            return channel.getParameterDouble(value, "measurementtool measurement_tip_tolerance b%02d", tool);
        });
    reportUnless(tolerance.has_value(), "Error : Unable to get tip tolerance of measurement tool");
    return tolerance.value_or(defaultToleranceMm);
}

bool ControllerAccess::startTipMeasurement(int tool) const
{
    const auto answer = ControllerCall::text(m_commands, [tool](IOManager &channel, char *text) {
        return channel.sendCommand(text, "velmar2 measurementtool start_measurement b%02d", tool);
    });
    return reportUnless(answer.has_value(), "Error : Unable to start measurement tool measurement");
}

std::optional<QByteArray> ControllerAccess::coordinateTypeText() const
{
    if (supports(ControllerFeature::LastCoordinateType)) {
        const auto last = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
            return channel.getParameter(answer, "roomcal last_coordinate_type");
        });
        if (!last || coordinateTypeOf(*last) != CoordinateType::None)
            return last;
    }
    return presentCoordinateType();
}

std::optional<QByteArray> ControllerAccess::presentCoordinateType() const
{
    return ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "roomcal coordinate_type");
    });
}

CoordinateType ControllerAccess::coordinateType() const
{
    const std::optional<QByteArray> type = coordinateTypeText();
    if (!reportUnless(type.has_value(), "Error: Cannot require room calibration coordinate type."))
        return CoordinateType::Unknown;
    return coordinateTypeOf(*type);
}
