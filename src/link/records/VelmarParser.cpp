#include "VelmarParser.h"

#include "BlockReader.h"
#include "NumberReader.h"
#include "RecordBlocks.h"

#include <algorithm>
#include <cstring>

using namespace RecordBlocks;

namespace
{

/// Sizes the list by the line's count and reads each record with `readRecord(index, record)`.
template <typename Record, typename ReadRecord>
bool readCountedRecords(char **cursor, RecordList<Record> &list, int *announced, ReadRecord readRecord)
{
    int count = 0;
    if (!readCount(cursor, &count))
        return false;
    if (announced)
        *announced = count;
    list.resize(count);
    for (int index = 0; index < count; ++index) {
        if (!readRecord(index, *list.at(index)))
            return false;
    }
    return true;
}

/// Whether a list may have an entry of this number.
bool isIndex(int id)
{
    return id >= 0 && id < RecordList<BodyRecord>::cap;
}

/// The first formats tell their buttons by the lowest bits of one number.
constexpr int buttonsOfTheFirstFormats = 4;

void setBits(int bits, RecordButtons &buttons)
{
    buttons.fill(0);
    for (int place = 0; place < buttonsOfTheFirstFormats; ++place)
        buttons[static_cast<std::size_t>(place)] =
            static_cast<int>((static_cast<unsigned>(bits) >> place) & 1U);
}

int heldCount(int count)
{
    return std::clamp(count, 0, recordButtonPlaces);
}

} // namespace

VelmarParser::~VelmarParser() = default;

double VelmarParser::reset()
{
    m_frameCounter = 0;
    m_calibratedBodies = -1;
    m_calibratedGloves = -1;
    m_announcedHandhelds = 0;
    m_announcedTools = 0;
    return m_timestamp = -1.0;
}

void VelmarParser::resizeLists()
{
    if (m_calibratedBodies >= 0)
        m_bodies.resize(static_cast<long long>(m_calibratedBodies) - m_announcedHandhelds - m_announcedTools);
    if (m_calibratedGloves >= 0)
        m_gloves.resize(m_calibratedGloves);
}

// NOLINTNEXTLINE(readability-function-size): most of it is the table of the kinds
int VelmarParser::parseLine(char **cursor)
{
    struct Kind {
        const char *prefix;
        bool (VelmarParser::*read)(char **);
    };
    static constexpr Kind kinds[] = {
        {"fr ", &VelmarParser::readFrame},
        {"ts ", &VelmarParser::readTimestamp},
        {"6dcal ", &VelmarParser::readCalibratedBodies},
        {"6d ", &VelmarParser::readBodies},
        {"6df ", &VelmarParser::readHandhelds},
        {"6df2 ", &VelmarParser::readHandhelds2},
        {toolLineBeginning, &VelmarParser::readTools},
        {"6dmt2 ", &VelmarParser::readTools2},
        {"6dmtr ", &VelmarParser::readToolReferences},
        {"glcal ", &VelmarParser::readCalibratedGloves},
        {"gl ", &VelmarParser::readGloves},
        {"6dj ", &VelmarParser::readJoints},
        {"6di ", &VelmarParser::readInertials},
        {"3d ", &VelmarParser::readMarkers},
    };
    if (!cursor || !*cursor)
        return 0;
    for (const Kind &kind : kinds) {
        const std::size_t length = std::strlen(kind.prefix);
        if (std::strncmp(*cursor, kind.prefix, length) != 0)
            continue;
        *cursor += length;
        return (this->*kind.read)(cursor) ? 1 : 0;
    }
    return 0;
}

bool VelmarParser::readFrame(char **cursor)
{
    m_frameCounter = 0;
    return readNumber(cursor, NumberReader::unsignedInteger, &m_frameCounter);
}

bool VelmarParser::readTimestamp(char **cursor)
{
    m_timestamp = -1.0;
    return readNumber(cursor, NumberReader::real, &m_timestamp);
}

bool VelmarParser::readCalibratedBodies(char **cursor)
{
    return readNumber(cursor, NumberReader::integer, &m_calibratedBodies);
}

bool VelmarParser::readCalibratedGloves(char **cursor)
{
    return readNumber(cursor, NumberReader::integer, &m_calibratedGloves);
}

bool VelmarParser::readBodies(char **cursor)
{
    int count = 0;
    const bool converts = readNumber(cursor, NumberReader::integer, &count);
    if (count > RecordList<BodyRecord>::cap)
        return false;
    m_bodies.blank();
    for (int index = 0; index < count; ++index) {
        if (!readBody(cursor))
            return false;
    }
    return converts;
}

bool VelmarParser::readBody(char **cursor)
{
    BodyRecord found;
    Head head;
    if (!readHead(cursor, "id", anyId, found, head) || !isIndex(found.id))
        return false;
    if (found.id >= m_bodies.count())
        m_bodies.resize(found.id + 1LL);
    BodyRecord &body = *m_bodies.at(found.id);
    body.id = found.id;
    body.quality = found.quality;
    return readPlace(cursor, body);
}

bool VelmarParser::readHandhelds(char **cursor)
{
    const auto readRecord = [cursor](int index, HandheldRecord &device) {
        Head head;
        if (!readHead(cursor, "idi", index, device, head))
            return false;
        device.buttonCount = buttonsOfTheFirstFormats;
        setBits(head.ints[1], device.buttons);
        device.joystickCount = 0;
        device.joysticks.fill(0.0);
        return readPlace(cursor, device);
    };
    return readCountedRecords(cursor, m_handhelds, &m_announcedHandhelds, readRecord);
}

bool VelmarParser::readHandhelds2(char **cursor)
{
    const auto readRecord = [cursor](int index, HandheldRecord &device) {
        Head head;
        if (!readHead(cursor, "idii", index, device, head))
            return false;
        device.buttonCount = heldCount(head.ints[1]);
        device.joystickCount = heldCount(head.ints[2]);
        return readPlace(cursor, device) &&
               moveBehind(cursor,
                          readCountedBlock(*cursor, recordButtonPlaces, head.ints[1], device.buttons.data(),
                                           head.ints[2], device.joysticks.data()));
    };
    return readCountedRecords(cursor, m_handhelds, nullptr, readRecord);
}

bool VelmarParser::readTools(char **cursor)
{
    const auto readRecord = [cursor](int index, MeasurementToolRecord &tool) {
        Head head;
        if (!readHead(cursor, "idi", index, tool, head))
            return false;
        tool.flagCount = buttonsOfTheFirstFormats;
        setBits(head.ints[1], tool.flags);
        tool.tipRadius = 0.0;
        tool.covariance.fill(0.0);
        return readPlace(cursor, tool);
    };
    return readCountedRecords(cursor, m_tools, &m_announcedTools, readRecord);
}

bool VelmarParser::readTools2(char **cursor)
{
    m_announcedTools = 0;
    const auto readRecord = [cursor](int index, MeasurementToolRecord &tool) {
        Head head;
        if (!readHead(cursor, "idid", index, tool, head))
            return false;
        tool.flagCount = heldCount(head.ints[1]);
        tool.tipRadius = head.reals[1];
        tool.flags.fill(0);
        return readPlace(cursor, tool) &&
               moveBehind(cursor,
                          readCountedBlock(*cursor, recordButtonPlaces, head.ints[1], tool.flags.data())) &&
               moveBehind(cursor, readBlock(*cursor, "dddddd", nullptr, tool.covariance.data()));
    };
    return readCountedRecords(cursor, m_tools, nullptr, readRecord);
}

bool VelmarParser::readToolReferences(char **cursor)
{
    return readCountedRecords(cursor, m_toolReferences, nullptr, [cursor](int /*index*/, BodyRecord &record) {
        Head head;
        return readHead(cursor, "id", anyId, record, head) && readPlace(cursor, record);
    });
}

bool VelmarParser::readGloves(char **cursor)
{
    return readCountedRecords(cursor, m_gloves, nullptr, [cursor](int /*index*/, GloveRecord &glove) {
        Head head;
        if (!readHead(cursor, "idii", anyId, glove, head))
            return false;
        glove.side = head.ints[1];
        glove.fingerCount = head.ints[2];
        return readPlace(cursor, glove) &&
               moveBehind(cursor, readBlock(*cursor, "dddddd", nullptr, glove.values.data()));
    });
}

bool VelmarParser::readJoints(char **cursor)
{
    return readCountedRecords(cursor, m_joints, nullptr, [cursor](int /*index*/, JointRecord &joint) {
        Head head;
        return readHead(cursor, "id", anyId, joint, head) && readPlace(cursor, joint) &&
               moveBehind(cursor, readBlock(*cursor, "dddddd", nullptr, joint.values.data()));
    });
}

bool VelmarParser::readInertials(char **cursor)
{
    return readCountedRecords(cursor, m_inertials, nullptr, [cursor](int /*index*/, BodyRecord &record) {
        Head head;
        return readHead(cursor, "id", anyId, record, head) && readPlace(cursor, record);
    });
}

bool VelmarParser::readMarkers(char **cursor)
{
    return readCountedRecords(cursor, m_markers, nullptr, [cursor](int /*index*/, MarkerRecord &marker) {
        Head head;
        return readHead(cursor, "id", anyId, marker, head) && readLocation(cursor, marker);
    });
}
