#include "CameraRooms.h"

#include "ObjectWatch.h"
#include "TrackingAccess.h"

namespace
{

bool twoCamerasHaveRooms(const TrackingAccess &controller, int cameras, const ObjectWatch &watch)
{
    int found = 0;
    for (int camera = 1; camera <= cameras && found < 2 && watch; ++camera)
        found += controller.cameraHasRoom(camera) ? 1 : 0;
    return found == 2;
}

bool everyCameraHasRoom(const TrackingAccess &controller, int cameras, const ObjectWatch &watch)
{
    bool every = true;
    for (int camera = 1; camera <= cameras && watch; ++camera)
        every = controller.roomOfCamera(camera) != CameraRoom::None && every;
    return every;
}

} // namespace

bool camerasHaveRooms(const TrackingAccess &controller, const QObject *owner)
{
    const ObjectWatch watch(owner);
    const std::optional<int> cameras = controller.numberOfCameras();
    if (!cameras || !watch)
        return false;
    const bool areThere = controller.supports(ControllerFeature::HasRoomQuery)
                              ? twoCamerasHaveRooms(controller, *cameras, watch)
                              : everyCameraHasRoom(controller, *cameras, watch);
    return areThere && watch;
}
