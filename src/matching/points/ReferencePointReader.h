#pragma once

#include "MatchingPoint.h"
#include "PointLineReader.h"

#include <cstddef>
#include <optional>
#include <utility>

class QIODevice;

/// Reads reference points from a text in one of three formats, which it finds out by itself.
///
/// The first line that begins with one of these starts a block; lines before it are skipped:
/// - "Documentation_mPos[3][0]": all x as "Documentation_mPos[3][0]:3:1.5", then all y with [1], then all z
///   with [2]. Missing y and z stay -999, surplus ones are ignored.
/// - "(1)": one point per line, "(1) x y z". The last line needs its line feed, otherwise it does not count.
/// - "1": one point per line, "1 x y z". The last line needs no line feed.
/// The numbers of the points are read and ignored. A line of a block that does not convert is skipped.
/// Coordinates are rounded to single precision; the point is the decimal point in every locale. Infinity, NaN
/// and hexadecimal numbers are read as strtof reads them.   Limits: largestPointCount, and see
/// PointLineReader.
class ReferencePointReader
{
public:
    enum class Result {
        UnknownFormat, ///< no line started a block, or the text has lines without end: see PointLineReader
        TooManyPoints, ///< more than largestPointCount; the rest was not read
        Read,
    };

    explicit ReferencePointReader(QIODevice &device)
        : m_lines(device)
    {
    }

    /// Reads on for a few milliseconds. False when everything has been read.
    [[nodiscard]] bool readPiece();

    /// Once everything has been read.
    [[nodiscard]] Result result() const;
    /// The points in the order of the text. Call once.
    [[nodiscard]] MatchingPoints takePoints() { return std::move(m_points); }

    /// Reads everything: the points, or nothing unless the result is Read. Call once.
    [[nodiscard]] std::optional<MatchingPoints> read();

    /// The bytes read so far.
    [[nodiscard]] qint64 position() const { return m_lines.position(); }

private:
    enum class Block { None, Documentation, Bracketed, Numbered };

    [[nodiscard]] bool readLine();
    void beginBlock();
    void takeDocumentationLine();
    bool takeDocumentationValue();
    void takeBracketedLine();
    void takeNumberedLine();

    PointLineReader m_lines;
    MatchingPoints m_points;
    Block m_block = Block::None;
    bool m_recognised = false;
    std::size_t m_axis = 0;  ///< of a documentation block
    std::size_t m_index = 0; ///< how many values of the axis were taken
    bool m_anyValue = false;
};
