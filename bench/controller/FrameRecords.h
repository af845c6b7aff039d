#pragma once

#include "RecordFaults.h"

#include <vector>

struct SimMachine;

/// The next frame of a measuring controller: counts it, runs the tip measurements, draws the noise and gives
/// the undamaged records in the order fr, ts, 6dcal, 6d, 6dmt2, 6dmt, 6df2, 6df.
///
/// Body, device and tool numbers count from 0. What is not tracked has the quality -1.000 and zeros; a body
/// that is not tracked is left out.
std::vector<SimRecord> nextFrame(SimMachine &machine);
