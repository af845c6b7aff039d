#pragma once

#include <QtGlobal>

class QIODevice;

/// Reads a byte stream line by line.
///
/// A line ends behind its line feed or at the end of the stream. Its first 1023 bytes count, line feed
/// included; what a longer line holds beyond them is dropped. A line of more than 16 MiB is none: the stream
/// is given up there, as a file full of zeros has to be.
class PointLineReader
{
public:
    explicit PointLineReader(QIODevice &device)
        : m_device(device)
    {
    }

    /// Reads the next line. At the end of the stream the line is empty.
    void next();

    /// The current line with a zero byte behind it.
    [[nodiscard]] const char *line() const { return m_line; }

    /// True once a read met the end of the stream, also when it still brought a last line without line feed.
    [[nodiscard]] bool atEnd() const { return m_atEnd; }

    /// The stream was given up, and counts as read to its end.
    [[nodiscard]] bool isGivenUp() const { return m_givenUp; }

    /// The bytes read so far.
    [[nodiscard]] qint64 position() const { return m_position; }

private:
    static constexpr qint64 largestLength = 1023;
    static constexpr qint64 longestLine = 16 * 1024 * 1024;

    [[nodiscard]] bool fill();

    QIODevice &m_device;
    char m_buffer[64 * 1024];
    const char *m_next = m_buffer;
    const char *m_end = m_buffer;
    char m_line[largestLength + 1] = {};
    qint64 m_position = 0;
    bool m_atEnd = false;
    bool m_givenUp = false;
};
