#include "ReferencePointReader.h"

#include "Ascii.h"
#include "NumberReader.h"
#include "PointLimit.h"

#include <cstring>
#include <iterator>

namespace
{

constexpr double missing = -999.0;
constexpr const char *documentationPrefixes[] = {"Documentation_mPos[3][0]", "Documentation_mPos[3][1]",
                                                 "Documentation_mPos[3][2]"};
constexpr const char *bracketedPrefix = "(1)";
constexpr const char *numberedPrefix = "1";

bool startsWith(const char *line, const char *prefix)
{
    return std::strncmp(line, prefix, std::strlen(prefix)) == 0;
}

/// Moves `text` behind `expected`, or leaves it and says no.
bool skip(const char *&text, const char *expected)
{
    if (!startsWith(text, expected))
        return false;
    text += std::strlen(expected);
    return true;
}

/// Moves `text` behind a whole number of any size.
bool skipNumber(const char *&text)
{
    const char *digits = text;
    while (Ascii::isBlank(*digits))
        ++digits;
    if (*digits == '+' || *digits == '-')
        ++digits;
    if (!Ascii::isDigit(*digits))
        return false;
    while (Ascii::isDigit(*digits))
        ++digits;
    text = digits;
    return true;
}

bool readReal(const char *&text, double &value)
{
    char *end = nullptr;
    const float single = NumberReader::singleReal(text, &end);
    if (end == text)
        return false;
    text = end;
    value = static_cast<double>(single);
    return true;
}

bool readPoint(const char *text, MatchingPoint &point)
{
    return readReal(text, point[0]) && readReal(text, point[1]) && readReal(text, point[2]);
}

} // namespace

std::optional<MatchingPoints> ReferencePointReader::read()
{
    while (readPiece()) {
    }
    if (result() != Result::Read)
        return std::nullopt;
    return takePoints();
}

bool ReferencePointReader::readPiece()
{
    constexpr qint64 pieceSize = 128 * 1024;
    const qint64 pieceEnd = m_lines.position() + pieceSize;
    while (m_lines.position() < pieceEnd) {
        if (m_points.size() > largestPointCount || !readLine())
            return false;
    }
    return true;
}

ReferencePointReader::Result ReferencePointReader::result() const
{
    if (m_points.size() > largestPointCount)
        return Result::TooManyPoints;
    return m_recognised && !m_lines.isGivenUp() ? Result::Read : Result::UnknownFormat;
}

/// Does with the current line what the block wants, and goes to the next; before the first it is empty. False
/// at the end of the text.
bool ReferencePointReader::readLine()
{
    switch (m_block) {
    case Block::None:
        if (*m_lines.line() == '\0' && m_lines.atEnd())
            return false;
        beginBlock();
        break;
    case Block::Documentation:
        takeDocumentationLine();
        break;
    case Block::Bracketed:
        takeBracketedLine();
        break;
    case Block::Numbered:
        takeNumberedLine();
        break;
    }
    return true;
}

/// A line that starts a block is its first line, too. Any other is skipped.
void ReferencePointReader::beginBlock()
{
    const char *line = m_lines.line();
    if (startsWith(line, documentationPrefixes[0]))
        m_block = Block::Documentation;
    else if (startsWith(line, bracketedPrefix))
        m_block = Block::Bracketed;
    else if (startsWith(line, numberedPrefix))
        m_block = Block::Numbered;
    if (m_block == Block::None)
        m_lines.next();
    else
        m_recognised = true;
    m_axis = 0;
    m_index = 0;
    m_anyValue = false;
}

/// Behind the last value of an axis the same line may be the first of the next. A block without any value
/// ends behind its line.
void ReferencePointReader::takeDocumentationLine()
{
    if (takeDocumentationValue()) {
        m_anyValue = true;
        ++m_index;
        m_lines.next();
        return;
    }
    m_index = 0;
    if (++m_axis < std::size(documentationPrefixes))
        return;
    m_block = Block::None;
    if (!m_anyValue)
        m_lines.next();
}

bool ReferencePointReader::takeDocumentationValue()
{
    double value = 0.0;
    const char *text = m_lines.line();
    if (!skip(text, documentationPrefixes[m_axis]) || !skip(text, ":3:") || !readReal(text, value))
        return false;
    if (m_axis == 0)
        m_points.push_back({value, missing, missing});
    else if (m_index < m_points.size())
        m_points[m_index][m_axis] = value;
    return true;
}

/// The line whose reading met the end does not count.
void ReferencePointReader::takeBracketedLine()
{
    MatchingPoint point{};
    const char *text = m_lines.line();
    if (m_lines.atEnd())
        m_block = Block::None;
    else if (skip(text, "(") && skipNumber(text) && skip(text, ")") && readPoint(text, point))
        m_points.push_back(point);
    m_lines.next();
}

/// The line whose reading met the end counts, and is the last.
void ReferencePointReader::takeNumberedLine()
{
    MatchingPoint point{};
    const char *text = m_lines.line();
    if (skipNumber(text) && readPoint(text, point))
        m_points.push_back(point);
    if (m_lines.atEnd())
        m_block = Block::None;
    m_lines.next();
}
