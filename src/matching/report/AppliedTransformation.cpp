#include "AppliedTransformation.h"

#include "abcRoom.h"
#include "bsMatrix.h"

RoomTrafoData appliedTransformation(const bsMatrix &roomFromReference, double scaling)
{
    bsMatrix snapped = roomFromReference;
    snapAxisAligned(snapped);
    const bsVector position = roomFromReference.column(3);
    abcRoom room(nullptr);
    room.setPendingOrientationMatrix(snapped);
    room.setPendingPosition(position.x, position.y, position.z);
    room.commit();
    RoomTrafoData applied;
    room.getTransformation(applied, true);
    applied.scaling = scaling;
    return applied;
}
