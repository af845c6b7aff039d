#include "ReferencePointReader.h"

#include "Ascii.h"
#include "NumberReader.h"

#include <cstring>

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
    bool recognised = false;
    m_lines.next();
    while (*m_lines.line() != '\0' || !m_lines.atEnd()) {
        if (readBlock())
            recognised = true;
        else
            m_lines.next();
    }
    if (!recognised)
        return std::nullopt;
    return std::move(m_points);
}

/// Reads the block that the current line starts; the current line is then the first behind it.
bool ReferencePointReader::readBlock()
{
    const char *line = m_lines.line();
    if (startsWith(line, documentationPrefixes[0]))
        readDocumentation();
    else if (startsWith(line, bracketedPrefix))
        readBracketed();
    else if (startsWith(line, numberedPrefix))
        readNumbered();
    else
        return false;
    return true;
}

void ReferencePointReader::readDocumentation()
{
    const bool anyX = readDocumentationAxis(0);
    const bool anyY = readDocumentationAxis(1);
    const bool anyZ = readDocumentationAxis(2);
    if (!anyX && !anyY && !anyZ)
        m_lines.next();
}

/// Takes the lines of one axis as long as they convert. False if there was none.
bool ReferencePointReader::readDocumentationAxis(std::size_t axis)
{
    double value = 0.0;
    std::size_t index = 0;
    for (;; m_lines.next(), ++index) {
        const char *text = m_lines.line();
        if (!skip(text, documentationPrefixes[axis]) || !skip(text, ":3:") || !readReal(text, value))
            return index > 0;
        if (axis == 0)
            m_points.push_back({value, missing, missing});
        else if (index < m_points.size())
            m_points[index][axis] = value;
    }
}

void ReferencePointReader::readBracketed()
{
    MatchingPoint point{};
    while (!m_lines.atEnd()) {
        const char *text = m_lines.line();
        if (skip(text, "(") && skipNumber(text) && skip(text, ")") && readPoint(text, point))
            m_points.push_back(point);
        m_lines.next();
    }
    m_lines.next();
}

void ReferencePointReader::readNumbered()
{
    MatchingPoint point{};
    for (;; m_lines.next()) {
        const char *text = m_lines.line();
        if (skipNumber(text) && readPoint(text, point))
            m_points.push_back(point);
        if (m_lines.atEnd())
            break;
    }
    m_lines.next();
}
