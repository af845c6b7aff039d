#include "PointLineReader.h"

#include <QIODevice>

void PointLineReader::next()
{
    const qint64 length = m_atEnd ? 0 : m_device.readLine(m_line, sizeof m_line);
    if (length <= 0) {
        m_line[0] = '\0';
        m_atEnd = true;
        return;
    }
    m_line[length] = '\0';
    if (m_line[length - 1] != '\n')
        dropRest();
}

void PointLineReader::dropRest()
{
    char rest[largestLength + 1];
    qint64 length = 0;
    do {
        length = m_device.readLine(rest, sizeof rest);
    } while (length > 0 && rest[length - 1] != '\n');
    m_atEnd = length <= 0;
}
