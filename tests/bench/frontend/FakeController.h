#pragma once

#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"

/// A simulated controller that moves only when it is told to, with a channel to it.
struct FakeController {
    FakeController()
        : link(controller)
        , channel(link)
    {
        link.ask("sim clock stepped");
    }

    SimRoom &room() { return controller.machine().room; }
    SimState &state() { return controller.machine().state; }

    SimController controller;
    LocalController link;
    BenchIOManager channel;
};
