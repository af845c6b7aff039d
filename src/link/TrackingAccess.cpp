#include "TrackingAccess.h"

#include "AnswerWords.h"
#include "ControllerCall.h"
#include "CoordinateTypeName.h"
#include "SharedCalls.h"

namespace
{

constexpr std::array<const char *, TrackingAccess::recordKindCount> recordKinds = {"ts", "6dmt2", "6dmt",
                                                                                   "6df2", "6df"};

/// Takes the first `count` words of a text for numbers; nothing when one does not convert.
template <std::size_t count>
std::optional<std::array<double, count>> numbers(const QByteArray &text)
{
    std::array<double, count> result{};
    for (std::size_t i = 0; i < count; ++i) {
        bool converted = false;
        result[i] = answerWord(text, int(i)).toDouble(&converted);
        if (!converted)
            return std::nullopt;
    }
    return result;
}

std::optional<QByteArray> roomText(const ControllerCall &call, int camera)
{
    return call.text([camera](IOManager &host, char *answer) {
        return host.getParameter(answer, "tracking room c%2.2d", camera);
    });
}

} // namespace

TrackingAccess::TrackingAccess(IOManager *commands, const BackendVersions *versions)
    : m_channel(commands, versions)
{
}

void TrackingAccess::subscribe(std::size_t kind, Requester *requester) const
{
    if (IOManager *const commands = m_channel.commands())
        commands->addRequester(recordKinds.at(kind), requester);
}

void TrackingAccess::unsubscribe(std::size_t kind, Requester *requester) const
{
    if (IOManager *const commands = m_channel.commands())
        commands->removeRequester(recordKinds.at(kind), requester);
}

Reply TrackingAccess::trackingAvailable() const
{
    return SharedCalls::trackingAvailable(m_channel.silently());
}

void TrackingAccess::startTracking() const
{
    SharedCalls::startTracking(m_channel.reporting("Error: Unable to start tracking"));
}

void TrackingAccess::stopTrackingIfMeasuring() const
{
    const ControllerChannel channel = m_channel;
    const Activity now = SharedCalls::activity(channel.reporting("Error: Unable to check tracking status"));
    if (now == Activity::Measuring)
        SharedCalls::stopTracking(channel.reporting("Error: Unable to stop tracking"));
}

Reply TrackingAccess::configurationChangeable() const
{
    return SharedCalls::replyOf(m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "config is_changeable"); }));
}

std::optional<int> TrackingAccess::numberOfCameras() const
{
    return SharedCalls::numberOfCameras(m_channel.reporting("Error: Unable to get number of cameras"));
}

bool TrackingAccess::cameraHasRoom(int camera) const
{
    return m_channel.silently()
        .value<bool>([camera](IOManager &host, bool *value) {
            return host.getParameterBool(value, "tracking has_room c%02d", camera);
        })
        .value_or(false);
}

CameraRoom TrackingAccess::roomOfCamera(int camera) const
{
    const std::optional<QByteArray> room = roomText(m_channel.silently(), camera);
    if (!room)
        return CameraRoom::Failed;
    return *room == "none" ? CameraRoom::None : CameraRoom::Present;
}

std::array<double, 3> TrackingAccess::positionOfCamera(int camera) const
{
    const std::optional<QByteArray> room =
        roomText(m_channel.reporting("Error: Unable to get room cal of camera"), camera);
    const QByteArray text = room.value_or(QByteArray());
    return {answerWord(text, 0).toDouble(), answerWord(text, 1).toDouble(), answerWord(text, 2).toDouble()};
}

RoomTrafoData TrackingAccess::roomAdjustment() const
{
    const ControllerChannel channel = m_channel;
    RoomTrafoData data;
    if (!channel.supports(ControllerFeature::ExtraTransformation))
        return data;
    const auto rotation = channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, SharedCalls::extraRotation); });
    data.rotation = numbers<9>(rotation.value_or(QByteArray())).value_or(data.rotation);
    const auto translation = channel.silently().text([](IOManager &host, char *answer) {
        return host.getParameter(answer, SharedCalls::extraTranslation);
    });
    data.translation = numbers<3>(translation.value_or(QByteArray())).value_or(data.translation);
    data.scaling = SharedCalls::extraScaling(channel.silently()).value_or(data.scaling);
    return data;
}

void TrackingAccess::writeRoomAdjustment(const RoomTrafoData &data) const
{
    const ControllerChannel channel = m_channel;
    if (channel.supports(ControllerFeature::ExtraTransformation))
        SharedCalls::writeExtraTransformation(channel, data,
                                              {"Error: Unable to set room adjustment rotation",
                                               "Error: Unable to set room adjustment translation",
                                               "Error: Unable to set room adjustment scaling"});
}

CoordinateType TrackingAccess::coordinateType() const
{
    const ControllerChannel channel = m_channel;
    const ControllerCall reading =
        channel.reporting("Error: Cannot require room calibration coordinate type.");
    if (channel.supports(ControllerFeature::LastCoordinateType)) {
        const auto last = reading.text([](IOManager &host, char *answer) {
            return host.getParameter(answer, "roomcal last_coordinate_type");
        });
        const CoordinateType type = last ? CoordinateTypeName::typeOf(*last) : CoordinateType::Unknown;
        if (type != CoordinateType::None)
            return type;
    }
    const std::optional<QByteArray> present = SharedCalls::coordinateType(reading);
    return present ? CoordinateTypeName::typeOf(*present) : CoordinateType::Unknown;
}
