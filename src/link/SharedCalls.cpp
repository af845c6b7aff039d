#include "SharedCalls.h"

#include "ControllerCall.h"

namespace
{

double plainZero(double value, double halfDecimal)
{
    return value < 0.0 && value > -halfDecimal ? 0.0 : value + 0.0;
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

void writeRotation(const ControllerCall &call, const std::array<double, 9> &rotation)
{
    std::array<double, 9> r{};
    std::transform(rotation.begin(), rotation.end(), r.begin(),
                   [](double value) { return plainZero(value, rotationHalfDecimal); });
    call.succeeds([&r](IOManager &host) {
        return host.setParameter("tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f", r[0],
                                 r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8]);
    });
}

void writeTranslation(const ControllerCall &call, const std::array<double, 3> &translation)
{
    std::array<double, 3> t{};
    std::transform(translation.begin(), translation.end(), t.begin(),
                   [](double value) { return plainZero(value, translationHalfDecimal); });
    call.succeeds([&t](IOManager &host) {
        return host.setParameter("tracking extra_translation %.3f %.3f %.3f", t[0], t[1], t[2]);
    });
}

void writeScaling(const ControllerCall &call, double scaling)
{
    call.succeeds(
        [scaling](IOManager &host) { return host.setParameter("tracking extra_scaling %.5f", scaling); });
}

} // namespace SharedCalls
