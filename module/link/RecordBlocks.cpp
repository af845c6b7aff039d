#include "RecordBlocks.h"

#include "BlockReader.h"
#include "NumberReader.h"
#include "RecordList.h"

namespace
{

bool idIsValid(int id)
{
    return id >= 0 && id < RecordList<MarkerRecord>::cap;
}

} // namespace

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
    *count = value < 0 ? 0 : value;
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

bool readHead(char **cursor, const char *format, IdRule rule, int index, MarkerRecord &record, Head &head)
{
    if (!moveBehind(cursor, readBlock(*cursor, format, head.ints, head.reals)))
        return false;
    const int id = head.ints[0];
    if (!idIsValid(id) || (rule == IdRule::InOrder && id != index))
        return false;
    record.id = id;
    record.quality = head.reals[0];
    return true;
}

} // namespace RecordBlocks
