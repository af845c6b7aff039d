#include "Scenario.h"
#include "SimController.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// Qt's reader of JSON keeps a few bytes of an object in which a key stands twice.
extern "C" const char *__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)
extern "C" const char *__lsan_default_suppressions()  // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libQt5Core";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::string error;
    const auto scenario =
        Scenario::parse(std::string(reinterpret_cast<const char *>(data), size), "room", &error);
    if (!scenario) {
        if (error.rfind("room: ", 0) != 0)
            std::abort();
        return 0;
    }
    SimController controller(scenario->machine);
    controller.answer("velmar2 tracking start");
    for (const SimRecord &record : controller.frame()) {
        if (record.line.empty())
            std::abort();
    }
    return 0;
}
