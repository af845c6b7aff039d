#include "AdjustingObstacle.h"

#include "CameraRooms.h"
#include "ObjectWatch.h"
#include "TrackingAccess.h"

AdjustingObstacle::Kind AdjustingObstacle::find(const TrackingAccess &controller, const QObject *owner)
{
    const ObjectWatch watch(owner);
    if (controller.supports(ControllerFeature::TrackingAvailability) &&
        controller.trackingAvailable() == Reply::No)
        return Kind::CannotTrack;
    return watch && camerasHaveRooms(controller, owner) ? Kind::None : Kind::NoRoom;
}

QString AdjustingObstacle::textOf(Kind kind)
{
    switch (kind) {
    case Kind::None:
        break;
    case Kind::CannotTrack:
        return tr("The controller cannot track at the moment. The room cannot be adjusted.");
    case Kind::NoRoom:
        return tr("The cameras have no room calibration, or the controller does not answer. "
                  "The room cannot be adjusted.");
    case Kind::TooOld:
        return tr("This controller is too old to have its room adjusted.");
    case Kind::Locked:
        return tr("The configuration of the controller is locked. The room cannot be adjusted.");
    }
    return {};
}
