#pragma once

#include "MeasurementAccess.h"

#include <functional>
#include <vector>

/// What the controller tells about its measurement tools when the matching dialog opens.
struct ToolSurvey {
    enum class Verdict {
        NotSupported,  ///< the controller is too old to measure points
        NotAvailable,  ///< it has no measurement tool, or did not answer
        NotCalibrated, ///< no tool has a calibrated tip
        Ready,
    };

    Verdict verdict = Verdict::NotSupported;
    int toolCount = 0;
    /// The numbers, from 1, of the tools with a calibrated tip.
    std::vector<int> calibrated;
};

/// Asks the controller; failures are reported where MeasurementAccess says so. `goOn` is asked after every
/// call, before the access is used again, which may be gone; false ends the survey with what is known. It may
/// be empty.
[[nodiscard]] ToolSurvey surveyTools(const MeasurementAccess &controller,
                                     const std::function<bool()> &goOn = {});
