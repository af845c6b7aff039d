#include "AnswerHost.h"
#include "AnswerReadings.h"
#include "AnswerTexts.h"
#include "BackendVersions.h"
#include "Requirement.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <locale.h>
#include <sanitizer/lsan_interface.h>
#include <string>

namespace
{

/// A locale with a decimal comma; null when this system has none.
locale_t commaLocale()
{
    static const locale_t locale = [] {
        const __lsan::ScopedDisabler quiet; // the C library never gives back what it makes of the path
        ::setenv("LOCPATH", ROOM_LOCALE_PATH, 0);
        const locale_t found = ::newlocale(LC_ALL_MASK, "de_DE.UTF-8", nullptr);
        if (found == nullptr)
            std::fputs(
                "There is no locale with a decimal comma: numbers are read in the \"C\" locale alone.\n",
                stderr);
        return found;
    }();
    return locale;
}

template <typename Read>
std::string readWithComma(Read read)
{
    if (commaLocale() == nullptr)
        return read();
    const locale_t before = ::uselocale(commaLocale());
    std::string result = read();
    ::uselocale(before);
    return result;
}

/// The same answers must mean the same, again and under a decimal comma.
template <typename Read>
void requireSame(Read read)
{
    const std::string first = read();
    require(read() == first);
    require(readWithComma(read) == first);
}

} // namespace

/// The lines of the input are the answers of one controller.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    AnswerHost host(std::string(reinterpret_cast<const char *>(data), size));
    BackendVersions versions;
    versions.interfaceMajor = 1;
    versions.interfaceMinor = 24;
    const AnswerReadings::Accesses access{{&host, &versions}, {&host, &versions}, {&host, &versions}};
    std::size_t first = 0;
    for (const AnswerReadings::Reading reading : AnswerReadings::all()) {
        requireSame([&] {
            host.begin(first);
            return reading(access, host);
        });
        ++first;
    }
    for (const AnswerHost::Answer &answer : host.answers())
        requireSame([&answer] { return AnswerTexts::read(answer.visible()); });
    return 0;
}
