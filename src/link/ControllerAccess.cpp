#include "ControllerAccess.h"

#include "ControllerCall.h"
#include "SharedCalls.h"

#include <QList>

namespace
{

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

std::optional<QByteArray> roomText(const ControllerCall &call, int camera)
{
    return call.text([camera](IOManager &host, char *answer) {
        return host.getParameter(answer, "tracking room c%2.2d", camera);
    });
}

template <std::size_t count>
void takeOver(const std::optional<QByteArray> &text, std::array<double, count> &values)
{
    if (text)
        values = numbers<count>(*text).value_or(values);
}

constexpr auto available = "measurementtool available";

std::optional<bool> tipCalibrated(const ControllerCall &call, int tool)
{
    return call.value<bool>([tool](IOManager &host, bool *value) {
        return host.getParameterBool(value, "measurementtool tip_calibrated b%02d", tool);
    });
}

bool readTranslation(const ControllerChannel &channel, std::array<double, 3> &translation)
{
    return channel.reporting("Error: Unable to get info extra translation")
        .succeeds([&translation](IOManager &host) {
            return host.getParameterDoubles(translation.data(), int(translation.size()),
                                            SharedCalls::extraTranslation);
        });
}

bool readRotation(const ControllerChannel &channel, std::array<double, 9> &rotation)
{
    return channel.reporting("Error: Unable to get info extra rotation")
        .succeeds([&rotation](IOManager &host) {
            return host.getParameterDoubles(rotation.data(), int(rotation.size()),
                                            SharedCalls::extraRotation);
        });
}

} // namespace

ControllerAccess::ControllerAccess(IOManager *commands, const BackendVersions *versions)
    : m_channel(commands, versions)
{
}

void ControllerAccess::subscribe(Requester *requester) const
{
    IOManager *const commands = m_channel.commands();
    if (commands == nullptr)
        return;
    for (const char *kind : recordKinds)
        commands->addRequester(kind, requester);
}

void ControllerAccess::unsubscribe(Requester *requester) const
{
    IOManager *const commands = m_channel.commands();
    if (commands == nullptr)
        return;
    for (const char *kind : recordKinds)
        commands->removeRequester(kind, requester);
}

Reply ControllerAccess::trackingAvailable() const
{
    return SharedCalls::trackingAvailable(m_channel.silently());
}

void ControllerAccess::startTracking() const
{
    SharedCalls::startTracking(m_channel.reporting("Error: Unable to start tracking"));
}

void ControllerAccess::stopTrackingIfMeasuring() const
{
    const ControllerChannel channel = m_channel;
    const Activity now = SharedCalls::activity(channel.reporting("Error: Unable to check tracking status"));
    if (now == Activity::Measuring)
        SharedCalls::stopTracking(channel.reporting("Error: Unable to stop tracking"));
}

Reply ControllerAccess::configurationChangeable() const
{
    return SharedCalls::replyOf(m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "config is_changeable"); }));
}

std::optional<int> ControllerAccess::numberOfCameras() const
{
    return SharedCalls::numberOfCameras(m_channel.reporting("Error: Unable to get number of cameras"));
}

bool ControllerAccess::cameraHasRoom(int camera) const
{
    return m_channel.silently()
        .value<bool>([camera](IOManager &host, bool *value) {
            return host.getParameterBool(value, "tracking has_room c%02d", camera);
        })
        .value_or(false);
}

CameraRoom ControllerAccess::roomOfCamera(int camera) const
{
    const std::optional<QByteArray> room = roomText(m_channel.silently(), camera);
    if (!room)
        return CameraRoom::Failed;
    return *room == "none" ? CameraRoom::None : CameraRoom::Present;
}

std::array<double, 3> ControllerAccess::positionOfCamera(int camera) const
{
    const std::optional<QByteArray> room =
        roomText(m_channel.reporting("Error: Unable to get room cal of camera"), camera);
    const QList<QByteArray> words = room.value_or(QByteArray()).split(' ');
    return {words.value(0).toDouble(), words.value(1).toDouble(), words.value(2).toDouble()};
}

RoomTrafoData ControllerAccess::roomAdjustment() const
{
    const ControllerChannel channel = m_channel;
    RoomTrafoData data;
    if (!channel.supports(ControllerFeature::ExtraTransformation))
        return data;
    takeOver(channel.silently().text([](IOManager &host, char *answer) {
        return host.getParameter(answer, SharedCalls::extraRotation);
    }),
             data.rotation);
    takeOver(channel.silently().text([](IOManager &host, char *answer) {
        return host.getParameter(answer, SharedCalls::extraTranslation);
    }),
             data.translation);
    data.scaling = SharedCalls::extraScaling(channel.silently()).value_or(data.scaling);
    return data;
}

void ControllerAccess::writeRoomAdjustment(const RoomTrafoData &data) const
{
    const ControllerChannel channel = m_channel;
    const RoomTrafoData wanted = data;
    if (!channel.supports(ControllerFeature::ExtraTransformation))
        return;
    SharedCalls::writeRotation(channel.reporting("Error: Unable to set room adjustment rotation"),
                               wanted.rotation);
    SharedCalls::writeTranslation(channel.reporting("Error: Unable to set room adjustment translation"),
                                  wanted.translation);
    SharedCalls::writeScaling(channel.reporting("Error: Unable to set room adjustment scaling"),
                              wanted.scaling);
}

CoordinateType ControllerAccess::coordinateType() const
{
    const ControllerChannel channel = m_channel;
    const ControllerCall reading =
        channel.reporting("Error: Cannot require room calibration coordinate type.");
    if (channel.supports(ControllerFeature::LastCoordinateType)) {
        const auto last = reading.text([](IOManager &host, char *answer) {
            return host.getParameter(answer, "roomcal last_coordinate_type");
        });
        const CoordinateType type = last ? coordinateTypeOf(*last) : CoordinateType::Unknown;
        if (type != CoordinateType::None)
            return type;
    }
    const std::optional<QByteArray> present = SharedCalls::coordinateType(reading);
    return present ? coordinateTypeOf(*present) : CoordinateType::Unknown;
}

void ControllerAccess::checkMeasurementTool() const
{
    m_channel.reporting("Error: Unable to get info measurement tool available")
        .value<bool>([](IOManager &host, bool *value) { return host.getParameterBool(value, available); });
}

Reply ControllerAccess::measurementToolAvailable() const
{
    return SharedCalls::replyOf(m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, available); }));
}

int ControllerAccess::numberOfMeasurementTools() const
{
    return m_channel.reporting("Error : Unable to get number of measurement tools")
        .count([](IOManager &host, int *value) {
            return host.getParameterInt(value, "measurementtool number_of_tools");
        })
        .value_or(0);
}

bool ControllerAccess::tipIsCalibrated(int tool) const
{
    return tipCalibrated(m_channel.reporting("Error : Unable to get info of tip calibration"), tool)
        .value_or(false);
}

bool ControllerAccess::tipIsCalibratedQuietly(int tool) const
{
    return tipCalibrated(m_channel.silently(), tool).value_or(false);
}

double ControllerAccess::measurementDuration(int tool) const
{
    return m_channel.silently()
        .value<double>([tool](IOManager &host, double *value) {
            return host.getParameterDouble(value, "measurementtool measurement_duration b%02d", tool);
        })
        .value_or(defaultMeasurementSeconds);
}

double ControllerAccess::tipTolerance(int tool) const
{
    return m_channel.reporting("Error : Unable to get tip tolerance of measurement tool")
        .value<double>([tool](IOManager &host, double *value) {
            return host.getParameterDouble(value, "measurementtool measurement_tip_tolerance b%02d", tool);
        })
        .value_or(defaultToleranceMm);
}

void ControllerAccess::startTipMeasurement(int tool) const
{
    m_channel.reporting("Error : Unable to start measurement tool measurement")
        .text([tool](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 measurementtool start_measurement b%02d", tool);
        });
}

std::optional<double> ControllerAccess::extraScaling() const
{
    return SharedCalls::extraScaling(m_channel.silently());
}

std::optional<RoomTrafoData> ControllerAccess::extraTransformation() const
{
    const ControllerChannel channel = m_channel;
    RoomTrafoData data;
    if (!readTranslation(channel, data.translation) || !readRotation(channel, data.rotation))
        return std::nullopt;
    const std::optional<double> scaling =
        SharedCalls::extraScaling(channel.reporting("Error: Unable to get info extra scaling"));
    if (!scaling)
        return std::nullopt;
    data.scaling = *scaling;
    return data;
}

void ControllerAccess::setNeutralExtraTransformation() const
{
    const ControllerChannel channel = m_channel;
    channel.reporting("Error: Unable to set extra rotation default").succeeds([](IOManager &host) {
        return host.setParameter(
            "tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 "
            "0.00000000 0.00000000 0.00000000 1.00000000");
    });
    channel.reporting("Error: Unable to set extra translation default").succeeds([](IOManager &host) {
        return host.setParameter("tracking extra_translation 0.000 0.000 0.000");
    });
    channel.reporting("Error: Unable to set extra scaling default").succeeds([](IOManager &host) {
        return host.setParameter("tracking extra_scaling 1.00000");
    });
}

void ControllerAccess::restoreExtraTransformation(const RoomTrafoData &data) const
{
    const ControllerChannel channel = m_channel;
    const RoomTrafoData held = data;
    SharedCalls::writeRotation(channel.reporting("Error: Unable to set extra rotation"), held.rotation);
    SharedCalls::writeTranslation(channel.reporting("Error: Unable to set extra translation"),
                                  held.translation);
    SharedCalls::writeScaling(channel.reporting("Error: Unable to set extra scaling"), held.scaling);
}

QByteArray ControllerAccess::referenceTarget() const
{
    const auto target = m_channel.reporting("Error: Unable to get info reference target")
                            .text([](IOManager &host, char *answer) {
                                return host.getParameter(answer, "tracking reference");
                            });
    return target && *target != "none" ? *target : QByteArray();
}

bool ControllerAccess::unsetReferenceTarget() const
{
    return m_channel.reporting("Error: Unable to unset reference target").succeeds([](IOManager &host) {
        return host.setParameter("tracking reference none");
    });
}

bool ControllerAccess::restoreReferenceTarget(const QByteArray &target) const
{
    return m_channel.reporting("Error: Unable to restore reference target")
        .succeeds([&target](IOManager &host) {
            return host.setParameter("tracking reference %s", target.constData());
        });
}
