#pragma once

#include "Keepsakes.h"
#include "Traveller.h"

#include <vector>

/// A way through the module, and what its user finds lost on it.
struct Journey {
    const char *name;
    /// How many things are kept when nothing fails.
    int keepsakes;
    /// Brings the controller into the state at the start.
    void (*prepare)(ModuleHost &host);
    /// Goes the way as far as it can be gone, and looks now and then whether what was entered is still there.
    void (*go)(Traveller &traveller, Keepsakes &kept);
};

const std::vector<Journey> &journeys();
