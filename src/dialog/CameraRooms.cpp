#include "CameraRooms.h"

#include "TrackingAccess.h"

namespace
{

bool twoCamerasHaveRooms(const TrackingAccess &controller, int cameras)
{
    int found = 0;
    for (int camera = 1; camera <= cameras && found < 2; ++camera)
        found += controller.cameraHasRoom(camera) ? 1 : 0;
    return found == 2;
}

bool everyCameraHasRoom(const TrackingAccess &controller, int cameras)
{
    bool every = true;
    for (int camera = 1; camera <= cameras; ++camera)
        every = controller.roomOfCamera(camera) != CameraRoom::None && every;
    return every;
}

} // namespace

bool camerasHaveRooms(const TrackingAccess &controller)
{
    const std::optional<int> cameras = controller.numberOfCameras();
    if (!cameras)
        return false;
    return controller.supports(ControllerFeature::HasRoomQuery) ? twoCamerasHaveRooms(controller, *cameras)
                                                                : everyCameraHasRoom(controller, *cameras);
}
