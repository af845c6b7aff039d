#pragma once

/// Starts and stops the controller's tracking for the fine adjustment; the room adjustment dialog implements
/// it.
class TrackingControl
{
public:
    /// Stops tracking if the controller is measuring. Reports its failures itself.
    virtual void stopTracking() = 0;

    /// Starts tracking. Reports its failure itself.
    virtual void startTracking() = 0;

protected:
    ~TrackingControl() = default;
};
