#pragma once

#include "ControllerReply.h"
#include "CoordinateType.h"
#include "RoomTrafoData.h"

#include <QByteArray>

#include <optional>

class ControllerCall;
class ControllerChannel;

/// The calls that more than one access makes, so that each text stands once. What is reported, the given call
/// says.
namespace SharedCalls
{

/// Read as a text by one access, as numbers by the other.
constexpr auto extraRotation = "tracking extra_rotation";
constexpr auto extraTranslation = "tracking extra_translation";

Reply replyOf(const std::optional<QByteArray> &answer);

Reply trackingAvailable(const ControllerCall &call);
Activity activity(const ControllerCall &call);
bool startTracking(const ControllerCall &call);
bool stopTracking(const ControllerCall &call);

/// At most 1000, never negative.
std::optional<int> numberOfCameras(const ControllerCall &call);

/// The identifier of the present coordinate type.
std::optional<QByteArray> coordinateType(const ControllerCall &call);

std::optional<double> extraScaling(const ControllerCall &call);
/// What the host is told when a part cannot be written.
struct ExtraTransformationFailures {
    const char *rotation;
    const char *translation;
    const char *scaling;
};

/// Writes rotation, translation and scaling; each is attempted whatever became of the others. What would be
/// printed as a negative zero is written as a plain one. The data are taken by value: their owner may go in
/// any call.
void writeExtraTransformation(const ControllerChannel &channel, RoomTrafoData data,
                              const ExtraTransformationFailures &failures);

} // namespace SharedCalls
