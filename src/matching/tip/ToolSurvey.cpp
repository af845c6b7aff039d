#include "ToolSurvey.h"

namespace
{

bool anyTipIsCalibrated(const MeasurementAccess &controller, int toolCount)
{
    for (int tool = 1; tool <= toolCount; ++tool) {
        if (controller.tipIsCalibrated(tool))
            return true;
    }
    return false;
}

} // namespace

ToolSurvey surveyTools(MeasurementAccess controller)
{
    ToolSurvey survey;
    if (!controller.supports(ControllerFeature::PointMeasurement))
        return survey;
    survey.verdict = ToolSurvey::Verdict::NotAvailable;
    if (controller.toolAvailable() != Reply::Yes)
        return survey;
    survey.toolCount = controller.numberOfTools();
    const bool ready = anyTipIsCalibrated(controller, survey.toolCount);
    survey.verdict = ready ? ToolSurvey::Verdict::Ready : ToolSurvey::Verdict::NotCalibrated;
    for (int tool = 1; tool <= survey.toolCount; ++tool) {
        if (controller.tipIsCalibratedQuietly(tool))
            survey.calibrated.push_back(tool);
    }
    return survey;
}
