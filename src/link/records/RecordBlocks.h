#pragma once

#include "MeasurementRecords.h"

#include <optional>

/// The blocks that the records of several kinds have in common. Each reader moves the cursor behind what it
/// read; a failed block leaves it where it was.
namespace RecordBlocks
{

/// The id of a record whose place in the line does not decide it.
constexpr std::nullopt_t anyId = std::nullopt;

/// The first block of a record: id and quality, with at most two further integers and one further real.
struct Head {
    int ints[3] = {0, 0, 0};
    double reals[2] = {0.0, 0.0};
};

/// Moves the cursor behind a block that was read; false for null, a failed one.
[[nodiscard]] bool moveBehind(char **cursor, char *behind);

/// Reads the count of a line. False when nothing converts or the count is above the cap of a list; a negative
/// count is 0.
[[nodiscard]] bool readCount(char **cursor, int *count);

/// Reads the first block and stores id and quality. An id other than the wanted one fails and stores nothing.
[[nodiscard]] bool readHead(char **cursor, const char *format, std::optional<int> wantedId,
                            MarkerRecord &record, Head &head);

[[nodiscard]] bool readLocation(char **cursor, MarkerRecord &record);

/// Location and rotation.
[[nodiscard]] bool readPlace(char **cursor, BodyRecord &record);

} // namespace RecordBlocks
