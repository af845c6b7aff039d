#include "MeasurementAccess.h"

#include "ControllerCall.h"
#include "SharedCalls.h"

namespace
{

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

MeasurementAccess::MeasurementAccess(IOManager *commands, const BackendVersions *versions)
    : m_channel(commands, versions)
{
}

void MeasurementAccess::checkTool() const
{
    m_channel.reporting("Error: Unable to get info measurement tool available")
        .value<bool>([](IOManager &host, bool *value) { return host.getParameterBool(value, available); });
}

Reply MeasurementAccess::toolAvailable() const
{
    return SharedCalls::replyOf(m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, available); }));
}

int MeasurementAccess::numberOfTools() const
{
    return m_channel.reporting("Error : Unable to get number of measurement tools")
        .count([](IOManager &host, int *value) {
            return host.getParameterInt(value, "measurementtool number_of_tools");
        })
        .value_or(0);
}

bool MeasurementAccess::tipIsCalibrated(int tool) const
{
    return tipCalibrated(m_channel.reporting("Error : Unable to get info of tip calibration"), tool)
        .value_or(false);
}

bool MeasurementAccess::tipIsCalibratedQuietly(int tool) const
{
    return tipCalibrated(m_channel.silently(), tool).value_or(false);
}

double MeasurementAccess::duration(int tool) const
{
    return m_channel.silently()
        .value<double>([tool](IOManager &host, double *value) {
            return host.getParameterDouble(value, "measurementtool measurement_duration b%02d", tool);
        })
        .value_or(defaultDurationSeconds);
}

double MeasurementAccess::tipTolerance(int tool) const
{
    return m_channel.reporting("Error : Unable to get tip tolerance of measurement tool")
        .value<double>([tool](IOManager &host, double *value) {
            return host.getParameterDouble(value, "measurementtool measurement_tip_tolerance b%02d", tool);
        })
        .value_or(defaultToleranceMm);
}

void MeasurementAccess::startMeasurement(int tool) const
{
    m_channel.reporting("Error : Unable to start measurement tool measurement")
        .text([tool](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 measurementtool start_measurement b%02d", tool);
        });
}

std::optional<double> MeasurementAccess::extraScaling() const
{
    return SharedCalls::extraScaling(m_channel.silently());
}

std::optional<RoomTrafoData> MeasurementAccess::extraTransformation() const
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

void MeasurementAccess::setNeutralExtraTransformation() const
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

void MeasurementAccess::restoreExtraTransformation(const RoomTrafoData &data) const
{
    const ControllerChannel channel = m_channel;
    SharedCalls::writeExtraTransformation(channel, data,
                                          {"Error: Unable to set extra rotation",
                                           "Error: Unable to set extra translation",
                                           "Error: Unable to set extra scaling"});
}

QByteArray MeasurementAccess::referenceTarget() const
{
    const auto target = m_channel.reporting("Error: Unable to get info reference target")
                            .text([](IOManager &host, char *answer) {
                                return host.getParameter(answer, "tracking reference");
                            });
    return target && *target != "none" ? *target : QByteArray();
}

bool MeasurementAccess::unsetReferenceTarget() const
{
    return m_channel.reporting("Error: Unable to unset reference target").succeeds([](IOManager &host) {
        return host.setParameter("tracking reference none");
    });
}

bool MeasurementAccess::restoreReferenceTarget(const QByteArray &target) const
{
    return m_channel.reporting("Error: Unable to restore reference target")
        .succeeds([&target](IOManager &host) {
            return host.setParameter("tracking reference %s", target.constData());
        });
}
