#pragma once

#include <QByteArray>

#include <optional>

/// Bytes as they arrive, taken out line by line.
///
/// What has been taken is dropped now and then instead of line by line, so that the work grows with the bytes
/// and not with the bytes times the lines.
class LineBuffer
{
public:
    void append(const QByteArray &bytes);
    void clear();

    /// The next line without its end, a line feed or carriage return and line feed; nothing when none is
    /// complete.
    std::optional<QByteArray> take();

    /// The bytes that have not been taken.
    int size() const { return m_bytes.size() - m_taken; }
    bool isEmpty() const { return size() == 0; }

private:
    void dropTaken();

    QByteArray m_bytes;
    int m_taken = 0;
    int m_searched = 0; // there is no line feed before it
};
