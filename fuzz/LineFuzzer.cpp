#include "FaultPlan.h"
#include "SimController.h"
#include "SimScript.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{

/// No request of the largest length is answered with more than this.
constexpr std::size_t longestAnswer = SimController::longestRequest + 1000;

constexpr std::size_t mostLines = 200;

void requireAnswer(const std::string &answer, const char *prefix)
{
    if (answer.rfind(prefix, 0) != 0 || answer.size() > longestAnswer)
        std::abort();
}

void run(SimController &controller, SimScript &script, FaultPlan &faults, const std::string &line)
{
    faults.run(line, controller.time());
    faults.next(line);
    if (SimScript::isControlLine(line))
        requireAnswer(script.run(line), "sim ");
    else
        requireAnswer(controller.answer(line), "velmar2 ");
    controller.frame();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    SimController controller;
    SimScript script(controller);
    FaultPlan faults;
    std::string rest(reinterpret_cast<const char *>(data), size);
    for (std::size_t i = 0; i < mostLines && !rest.empty(); ++i) {
        const std::size_t end = rest.find('\n');
        run(controller, script, faults, rest.substr(0, end));
        rest.erase(0, end == std::string::npos ? end : end + 1);
    }
    return 0;
}
