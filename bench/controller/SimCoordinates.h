#pragma once

#include "SimGeometry.h"

#include <optional>

struct SimMachine;

/// The coordinates that the controller reports, of one moment.
class SimCoordinates
{
public:
    explicit SimCoordinates(const SimMachine &machine);

    /// Base calibration and extra transformation, without the reference body: what camera rooms are given in.
    SimVector current(const SimVector &world) const;
    SimPose current(const SimPose &world) const;

    /// The same seen from the reference body, if one is set.
    SimVector reported(const SimVector &world) const;
    SimPose reported(const SimPose &world) const;

    /// False while the reference body is not tracked: then nothing is.
    bool isTracking() const { return m_tracking; }

private:
    SimPose m_base;
    SimRotation m_turn;
    SimVector m_shift;
    double m_scaling;
    std::optional<SimPose> m_reference; ///< its current pose
    bool m_tracking = true;
};
