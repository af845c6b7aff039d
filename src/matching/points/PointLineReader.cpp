#include "PointLineReader.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

void PointLineReader::next()
{
    qint64 kept = 0;
    qint64 length = 0;
    bool ended = m_atEnd;
    while (!ended && (m_next != m_end || fill())) {
        const auto available = static_cast<std::size_t>(m_end - m_next);
        const void *feed = std::memchr(m_next, '\n', available);
        const char *pieceEnd = feed ? static_cast<const char *>(feed) + 1 : m_end;
        const qint64 taken = std::min<qint64>(pieceEnd - m_next, largestLength - kept);
        std::memcpy(m_line + kept, m_next, static_cast<std::size_t>(taken));
        kept += taken;
        length += pieceEnd - m_next;
        m_next = pieceEnd;
        m_givenUp = length > longestLine;
        m_atEnd = m_givenUp;
        ended = feed || m_givenUp;
    }
    m_position += length;
    m_line[kept] = '\0';
}

bool PointLineReader::fill()
{
    const qint64 length = std::max<qint64>(m_device.read(m_buffer, sizeof m_buffer), 0);
    m_next = m_buffer;
    m_end = m_buffer + length;
    m_atEnd = length == 0;
    return length > 0;
}
