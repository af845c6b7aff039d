#include "LineBuffer.h"

void LineBuffer::append(const QByteArray &bytes)
{
    if (m_taken > size())
        dropTaken();
    m_bytes += bytes;
}

void LineBuffer::clear()
{
    m_bytes.clear();
    m_taken = 0;
    m_searched = 0;
}

std::optional<QByteArray> LineBuffer::take()
{
    const int end = m_bytes.indexOf('\n', m_searched);
    if (end < 0) {
        m_searched = m_bytes.size();
        dropTaken();
        return std::nullopt;
    }
    QByteArray line = m_bytes.mid(m_taken, end - m_taken);
    if (line.endsWith('\r'))
        line.chop(1);
    m_taken = end + 1;
    m_searched = m_taken;
    return line;
}

void LineBuffer::dropTaken()
{
    m_bytes.remove(0, m_taken);
    m_searched -= m_taken;
    m_taken = 0;
}
