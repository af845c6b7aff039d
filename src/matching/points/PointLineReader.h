#pragma once

#include <QtGlobal>

class QIODevice;

/// Reads a byte stream line by line.
///
/// A line ends behind its line feed or at the end of the stream. Its first 1023 bytes count, line feed
/// included; what a longer line holds beyond them is dropped.
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

private:
    static constexpr qint64 largestLength = 1023;

    void dropRest();

    QIODevice &m_device;
    char m_line[largestLength + 1] = {};
    bool m_atEnd = false;
};
