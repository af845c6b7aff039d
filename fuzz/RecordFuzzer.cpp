#include "VelmarParser.h"

#include "Requirement.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

namespace
{

int longestList(const VelmarParser &parser)
{
    return std::max({parser.bodyCount(), parser.handheldCount(), parser.measurementToolCount(),
                     parser.toolReferenceCount(), parser.gloveCount(), parser.jointCount(),
                     parser.inertialCount(), parser.markerCount()});
}

/// Parses the line in memory of exactly its size, so that a step behind it is noticed.
void parse(VelmarParser &parser, const std::string &line)
{
    const auto text = std::make_unique<char[]>(line.size() + 1);
    std::memcpy(text.get(), line.c_str(), line.size() + 1);
    char *cursor = text.get();
    const int result = parser.parseLine(&cursor);
    require(result == 0 || result == 1);
    require(cursor >= text.get() && cursor <= text.get() + line.size());
    require(std::memcmp(text.get(), line.c_str(), line.size() + 1) == 0);
    require(longestList(parser) <= RecordList<BodyRecord>::cap);
}

} // namespace

/// The lines of the input are the records of one controller; an empty line begins a new frame.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    VelmarParser parser;
    const std::string input(reinterpret_cast<const char *>(data), size);
    for (std::size_t begin = 0; begin <= input.size();) {
        const std::size_t end = std::min(input.find('\n', begin), input.size());
        const std::string line = input.substr(begin, end - begin);
        if (line.empty())
            parser.reset();
        else
            parse(parser, line);
        parser.resizeLists();
        begin = end + 1;
    }
    return 0;
}
