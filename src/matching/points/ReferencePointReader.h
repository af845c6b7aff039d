#pragma once

#include "MatchingPoint.h"
#include "PointLineReader.h"

#include <optional>

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
/// and hexadecimal numbers are read as strtof reads them.   Limits: see PointLineReader.
class ReferencePointReader
{
public:
    explicit ReferencePointReader(QIODevice &device)
        : m_lines(device)
    {
    }

    /// The points in the order of the text, or nothing when no line started a block. Call once.
    [[nodiscard]] std::optional<MatchingPoints> read();

private:
    [[nodiscard]] bool readBlock();
    void readDocumentation();
    bool readDocumentationAxis(std::size_t axis);
    void readBracketed();
    void readNumbered();

    PointLineReader m_lines;
    MatchingPoints m_points;
};
