#include "SharedCalls.h"

#include "ControllerCall.h"
#include "ControllerChannel.h"

namespace
{

template <std::size_t count>
std::array<double, count> withPlainZeros(std::array<double, count> values, double halfDecimal)
{
    for (double &value : values)
        value = value < 0.0 && value > -halfDecimal ? 0.0 : value + 0.0;
    return values;
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

void writeRotation(const ControllerCall &call, const std::array<double, 9> &rotation)
{
    const std::array<double, 9> r = withPlainZeros(rotation, rotationHalfDecimal);
    call.succeeds([&r](IOManager &host) {
        return host.setParameter("tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f", r[0],
                                 r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8]);
    });
}

void writeTranslation(const ControllerCall &call, const std::array<double, 3> &translation)
{
    const std::array<double, 3> t = withPlainZeros(translation, translationHalfDecimal);
    call.succeeds([&t](IOManager &host) {
        return host.setParameter("tracking extra_translation %.3f %.3f %.3f", t[0], t[1], t[2]);
    });
}

void writeScaling(const ControllerCall &call, double scaling)
{
    call.succeeds(
        [scaling](IOManager &host) { return host.setParameter("tracking extra_scaling %.5f", scaling); });
}

} // namespace

namespace SharedCalls
{

Reply replyOf(const std::optional<QByteArray> &answer)
{
    if (!answer)
        return Reply::Failed;
    if (*answer == "yes")
        return Reply::Yes;
    return *answer == "no" ? Reply::No : Reply::Other;
}

Reply trackingAvailable(const ControllerCall &call)
{
    return replyOf(call.text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "tracking available"); }));
}

Activity activity(const ControllerCall &call)
{
    return activityOf(
        call.text([](IOManager &host, char *answer) { return host.getParameter(answer, "status active"); }));
}

bool startTracking(const ControllerCall &call)
{
    return call
        .text(
            [](IOManager &host, char *answer) { return host.sendCommand(answer, "velmar2 tracking start"); })
        .has_value();
}

bool stopTracking(const ControllerCall &call)
{
    return call
        .text([](IOManager &host, char *answer) { return host.sendCommand(answer, "velmar2 tracking stop"); })
        .has_value();
}

std::optional<int> numberOfCameras(const ControllerCall &call)
{
    return call.count(
        [](IOManager &host, int *value) { return host.getParameterInt(value, "camera number_of_cameras"); });
}

std::optional<QByteArray> coordinateType(const ControllerCall &call)
{
    return call.text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "roomcal coordinate_type"); });
}

std::optional<double> extraScaling(const ControllerCall &call)
{
    return call.value<double>([](IOManager &host, double *value) {
        return host.getParameterDouble(value, "tracking extra_scaling");
    });
}

void writeExtraTransformation(const ControllerChannel &channel, RoomTrafoData data,
                              const ExtraTransformationFailures &failures)
{
    writeRotation(channel.reporting(failures.rotation), data.rotation);
    writeTranslation(channel.reporting(failures.translation), data.translation);
    writeScaling(channel.reporting(failures.scaling), data.scaling);
}

} // namespace SharedCalls
