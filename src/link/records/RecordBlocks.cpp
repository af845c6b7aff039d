#include "RecordBlocks.h"

#include "BlockReader.h"
#include "NumberReader.h"
#include "RecordList.h"

#include <algorithm>

namespace RecordBlocks
{

bool moveBehind(char **cursor, char *behind)
{
    if (behind)
        *cursor = behind;
    return behind != nullptr;
}

bool readCount(char **cursor, int *count)
{
    int value = 0;
    if (!readNumber(cursor, NumberReader::integer, &value) || value > RecordList<MarkerRecord>::cap)
        return false;
    *count = std::max(value, 0);
    return true;
}

bool readLocation(char **cursor, MarkerRecord &record)
{
    return moveBehind(cursor, readBlock(*cursor, "ddd", nullptr, record.location.data()));
}

bool readPlace(char **cursor, BodyRecord &record)
{
    return readLocation(cursor, record) &&
           moveBehind(cursor, readBlock(*cursor, "ddddddddd", nullptr, record.rotation.data()));
}

bool readHead(char **cursor, const char *format, std::optional<int> wantedId, MarkerRecord &record,
              Head &head)
{
    if (!moveBehind(cursor, readBlock(*cursor, format, head.ints, head.reals)))
        return false;
    const int id = head.ints[0];
    if (id != wantedId.value_or(id))
        return false;
    record.id = id;
    record.quality = head.reals[0];
    return true;
}

} // namespace RecordBlocks
