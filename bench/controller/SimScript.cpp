#include "SimScript.h"

#include "ControlLines.h"
#include "SimAnswer.h"
#include "SimController.h"
#include "SimText.h"

namespace
{

const std::string prefix = "sim ";

} // namespace

SimScript::SimScript(SimController &controller)
    : m_controller(controller)
    , m_controls({toolLines(), roomLines(), machineLines(), calibrationLines(), recordLines(), questions()})
{
}

std::string SimScript::run(const std::string &line)
{
    if (line.size() > SimController::longestRequest)
        return SimAnswer::controlError(SimReply::lineTooLong().text);
    if (!isControlLine(line))
        return SimAnswer::controlError("not a control line");
    const auto words = SimText::quotedWords(std::string_view(line).substr(prefix.size()));
    if (!words)
        return SimAnswer::controlError("a quote is not closed");
    const std::optional<SimReply> reply = m_controls.answer(m_controller.machine(), *words);
    if (!reply)
        return SimAnswer::controlError("unknown control line");
    if (reply->kind == SimReply::Kind::Error)
        return SimAnswer::controlError(reply->text);
    return reply->kind == SimReply::Kind::Value ? line + " " + reply->text : SimAnswer::controlOk;
}

bool SimScript::isControlLine(const std::string &line)
{
    return SimText::startsWith(line, prefix);
}
