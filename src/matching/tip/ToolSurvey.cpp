#include "ToolSurvey.h"

namespace
{

bool mayGoOn(const std::function<bool()> &goOn)
{
    return !goOn || goOn();
}

bool anyTipIsCalibrated(const MeasurementAccess &controller, int toolCount, const std::function<bool()> &goOn)
{
    for (int tool = 1; tool <= toolCount && mayGoOn(goOn); ++tool) {
        if (controller.tipIsCalibrated(tool))
            return true;
    }
    return false;
}

} // namespace

ToolSurvey surveyTools(const MeasurementAccess &controller, const std::function<bool()> &goOn)
{
    ToolSurvey survey;
    if (!controller.supports(ControllerFeature::PointMeasurement))
        return survey;
    survey.verdict = ToolSurvey::Verdict::NotAvailable;
    if (controller.toolAvailable() != Reply::Yes || !mayGoOn(goOn))
        return survey;
    survey.toolCount = controller.numberOfTools();
    const bool ready = anyTipIsCalibrated(controller, survey.toolCount, goOn);
    survey.verdict = ready ? ToolSurvey::Verdict::Ready : ToolSurvey::Verdict::NotCalibrated;
    for (int tool = 1; tool <= survey.toolCount && mayGoOn(goOn); ++tool) {
        if (controller.tipIsCalibratedQuietly(tool))
            survey.calibrated.push_back(tool);
    }
    return survey;
}
