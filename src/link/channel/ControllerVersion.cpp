#include "ControllerVersion.h"

#include "BackendVersions.h"

namespace
{

struct Threshold {
    int major;
    int minor;
};

Threshold threshold(ControllerFeature feature)
{
    switch (feature) {
    case ControllerFeature::CameraTable:
        return {0, 9};
    case ControllerFeature::CalibrationDuration:
        return {0, 12};
    case ControllerFeature::ExtraTransformation:
        return {0, 16};
    case ControllerFeature::TrackingAvailability:
        return {0, 17};
    case ControllerFeature::PointMeasurement:
        return {1, 3};
    case ControllerFeature::StepDuration:
        return {1, 4};
    case ControllerFeature::LastCoordinateType:
        return {1, 9};
    case ControllerFeature::CameraProgress:
        return {1, 11};
    case ControllerFeature::HasRoomQuery:
        return {1, 18};
    case ControllerFeature::AngleToolCalibration:
        break;
    }
    return {1, 23};
}

} // namespace

namespace ControllerVersion
{

bool isAtLeast(const BackendVersions *versions, int major, int minor)
{
    if (versions == nullptr)
        return false;
    if (versions->interfaceMajor != major)
        return versions->interfaceMajor > major;
    if (versions->interfaceMinor != minor)
        return versions->interfaceMinor > minor;
    return versions->interfacePatch >= -1;
}

bool supports(const BackendVersions *versions, ControllerFeature feature)
{
    const Threshold needed = threshold(feature);
    return isAtLeast(versions, needed.major, needed.minor);
}

} // namespace ControllerVersion
