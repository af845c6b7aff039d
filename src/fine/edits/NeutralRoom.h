#pragma once

#include "MeasurementAccess.h"
#include "RoomTrafoData.h"

#include <QByteArray>

class TrackingControl;

/// Keeps the controller free of its extra transformation and its reference target while points are measured.
///
/// Measured points must be in the coordinates of the room calibration. prepareTransformation() and
/// prepareReference() remember what the controller holds and neutralise it; restoreReference() and
/// restoreTransformation() put it back. What
/// could not be read counts as neutral, so that nothing half-read is ever written. Failures are reported by
/// the controller access; the sequence goes on. Tracking is stopped before each change and started after it.
/// Every operation bears that end() is called while it waits for an answer.
class NeutralRoom
{
public:
    /// `tracking` is not owned and may be null: then the extra transformation is never touched.
    NeutralRoom(const MeasurementAccess &controller, TrackingControl *tracking);

    void prepareTransformation();
    /// Where the reference target cannot be unset, tracking stays stopped.
    void prepareReference();

    /// Only a target of exactly two words is restored. Where that fails, tracking stays stopped.
    void restoreReference();
    void restoreTransformation();

    /// Nothing more is asked or written, and `tracking` is not touched any more.
    void end();

private:
    void stopTracking();
    void startTracking();

    MeasurementAccess m_controller;
    TrackingControl *m_tracking;
    bool m_hasEnded = false;
    RoomTrafoData m_savedTransformation;
    QByteArray m_savedReference;
};
