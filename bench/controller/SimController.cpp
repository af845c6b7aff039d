#include "SimController.h"

#include "ControllerRequests.h"
#include "FrameRecords.h"
#include "SimAnswer.h"
#include "SimText.h"

#include <utility>

namespace
{

const std::string prefix = "velmar2 ";

std::string refusal(const std::string &line)
{
    const bool parameter =
        SimText::startsWith(line, prefix + "get ") || SimText::startsWith(line, prefix + "set ");
    return SimAnswer::error(parameter ? SimReply::unknownParameter() : SimReply::unknownCommand());
}

std::string answerLine(const std::string &request, const SimReply &reply)
{
    switch (reply.kind) {
    case SimReply::Kind::Value:
        return request + " " + reply.text;
    case SimReply::Kind::Error:
        return SimAnswer::error(reply);
    case SimReply::Kind::Ok:
        break;
    }
    return SimAnswer::ok;
}

} // namespace

SimController::SimController(SimMachine machine)
    : m_machine(std::move(machine))
    , m_requests({statusRequests(), trackingRequests(), roomCalibrationRequests(), calibrationRequests(),
                  measurementToolRequests()})
{
}

std::string SimController::answer(const std::string &line)
{
    if (line.size() > longestRequest)
        return SimAnswer::error(SimReply::lineTooLong());
    if (!SimText::startsWith(line, prefix))
        return refusal(line);
    const auto words = SimText::words(std::string_view(line).substr(prefix.size()));
    const std::optional<SimReply> reply = m_requests.answer(m_machine, words);
    return reply ? answerLine(line, *reply) : refusal(line);
}

std::vector<SimRecord> SimController::frame()
{
    m_machine.advance(1.0 / framesPerSecond);
    if (m_machine.state.activity != SimActivity::Measuring)
        return {};
    return m_machine.recordFaults.apply(nextFrame(m_machine));
}

std::vector<std::string> SimController::takeNotes()
{
    return std::exchange(m_machine.notes, {});
}
