#include "SimScript.h"

#include "ControlLines.h"
#include "SimController.h"
#include "SimText.h"

namespace
{

const std::string prefix = "sim ";

std::string failure(const std::string &reason)
{
    return prefix + "err \"" + reason + "\"";
}

} // namespace

SimScript::SimScript(SimController &controller)
    : m_controller(controller)
    , m_controls({toolControls(), roomControls(), machineControls(), calibrationControls(), recordControls(),
                  questions()})
{
}

std::string SimScript::run(const std::string &line)
{
    if (line.size() > SimController::longestRequest)
        return failure("line too long");
    if (!isControlLine(line))
        return failure("not a control line");
    const auto words = SimText::quotedWords(std::string_view(line).substr(prefix.size()));
    if (!words)
        return failure("a quote is not closed");
    const std::optional<SimReply> reply = m_controls.answer(m_controller.machine(), *words);
    if (!reply)
        return failure("unknown control line");
    if (reply->kind == SimReply::Kind::Error)
        return failure(reply->text);
    return reply->kind == SimReply::Kind::Value ? line + " " + reply->text : prefix + "ok";
}

bool SimScript::isControlLine(const std::string &line)
{
    return SimText::startsWith(line, prefix);
}
