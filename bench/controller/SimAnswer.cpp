#include "SimAnswer.h"

#include "SimReply.h"
#include "SimText.h"

namespace
{

const std::string errorLead = "velmar2 err ";
const std::string controlErrorLead = "sim err ";

} // namespace

namespace SimAnswer
{

std::string error(int code, const std::string &text)
{
    return errorLead + std::to_string(code) + " \"" + text + "\"";
}

std::string error(const SimReply &refusal)
{
    return error(refusal.code, refusal.text);
}

std::string controlError(const std::string &reason)
{
    return controlErrorLead + "\"" + reason + "\"";
}

bool isError(const std::string &answer)
{
    return SimText::startsWith(answer, errorLead);
}

bool isControlError(const std::string &answer)
{
    return SimText::startsWith(answer, controlErrorLead);
}

std::string controlReason(const std::string &answer)
{
    return answer.substr(controlErrorLead.size());
}

} // namespace SimAnswer
