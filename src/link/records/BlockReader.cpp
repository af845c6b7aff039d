#include "BlockReader.h"

#include "NumberReader.h"

#include <algorithm>
#include <cstring>

OpenBlock::OpenBlock(char *position)
{
    char *opening = position ? std::strchr(position, '[') : nullptr;
    if (!opening)
        return;
    m_cursor = opening + 1;
    m_closing = std::strchr(m_cursor, ']');
    if (m_closing)
        *m_closing = '\0';
}

OpenBlock::~OpenBlock()
{
    if (m_closing)
        *m_closing = ']';
}

bool OpenBlock::readInt(int *value)
{
    return isOpen() && readNumber(&m_cursor, NumberReader::integer, value);
}

bool OpenBlock::readReal(double *value)
{
    return isOpen() && readNumber(&m_cursor, NumberReader::real, value);
}

namespace
{

struct Destinations {
    int *ints;
    double *doubles;
    float *floats;
    int intPlace = 0;
    int realPlace = 0;
};

bool readLetter(OpenBlock &block, char letter, Destinations &to)
{
    if (letter == 'i')
        return block.readInt(&to.ints[to.intPlace++]);
    double value = 0.0;
    if ((letter != 'd' && letter != 'f') || !block.readReal(&value))
        return false;
    if (letter == 'd')
        to.doubles[to.realPlace] = value;
    else
        to.floats[to.realPlace] = static_cast<float>(value);
    ++to.realPlace;
    return true;
}

bool readInts(OpenBlock &block, int count, int capacity, int *ints)
{
    std::fill(ints, ints + capacity, 0);
    for (int place = 0; place < count; ++place) {
        int value = 0;
        if (!block.readInt(&value))
            return false;
        if (place < capacity)
            ints[place] = value;
    }
    return true;
}

bool readReals(OpenBlock &block, int count, int capacity, double *reals)
{
    std::fill(reals, reals + capacity, 0.0);
    for (int place = 0; place < count; ++place) {
        double value = 0.0;
        if (!block.readReal(&value))
            return false;
        if (place < capacity)
            reals[place] = value;
    }
    return true;
}

} // namespace

char *readBlock(char *position, const char *format, int *ints, double *doubles, float *floats)
{
    OpenBlock block(position);
    Destinations to{ints, doubles, floats};
    for (; block.isOpen() && *format != '\0'; ++format) {
        if (!readLetter(block, *format, to))
            return nullptr;
    }
    return block.behind();
}

char *readCountedBlock(char *position, int capacity, int intCount, int *ints, int realCount, double *reals)
{
    OpenBlock block(position);
    const bool read =
        readInts(block, intCount, capacity, ints) && (!reals || readReals(block, realCount, capacity, reals));
    return read ? block.behind() : nullptr;
}
