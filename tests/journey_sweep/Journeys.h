#pragma once

#include "Traveller.h"

#include <vector>

/// A way through the module, and what its user finds lost on it.
struct Journey {
    const char *name;
    /// Brings the controller into the state at the start.
    void (*prepare)(ModuleHost &host);
    /// Goes the way as far as it can be gone; `lost` names what was entered and is no longer there.
    void (*go)(Traveller &traveller, QStringList &lost);
};

const std::vector<Journey> &journeys();
