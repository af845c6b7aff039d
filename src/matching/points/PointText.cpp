#include "PointText.h"

#include "CoordinateText.h"
#include "NumberText.h"

#include <QStringList>

#include <optional>

namespace
{

QStringList fieldsOf(const QString &line)
{
    for (const char separator : {'\t', ';'}) {
        if (line.contains(QLatin1Char(separator)))
            return line.split(QLatin1Char(separator));
    }
    return line.simplified().split(QLatin1Char(' '));
}

std::optional<PointRow> rowOf(const QString &line)
{
    PointRow row;
    const QStringList fields = fieldsOf(line);
    if (fields.size() != static_cast<int>(row.texts.size()))
        return std::nullopt;
    for (std::size_t axis = 0; axis < row.texts.size(); ++axis) {
        QString text = fields[static_cast<int>(axis)];
        const int points = text.count(QLatin1Char('.')) + text.count(QLatin1Char(','));
        if (points > 1 || !normalizeNumberText(text))
            return std::nullopt;
        row.point[axis] = text.toDouble();
        if (text != CoordinateText::of(row.point[axis]))
            row.texts[axis] = text;
    }
    return row;
}

} // namespace

QString PointText::write(const std::vector<Row> &rows)
{
    QString text;
    for (const Row &row : rows)
        text += row[0] + QLatin1Char('\t') + row[1] + QLatin1Char('\t') + row[2] + QLatin1Char('\n');
    return text;
}

PointText::PointText(const QString &text, std::size_t room)
    : m_text(text)
    , m_room(room)
{
}

bool PointText::doPiece()
{
    constexpr int linesOfPiece = 500;
    for (int i = 0; i < linesOfPiece; ++i) {
        if (m_tooLong || m_position >= m_text.size())
            return false;
        readLine();
    }
    return true;
}

int PointText::percent() const
{
    constexpr qint64 all = 100;
    return m_text.isEmpty() ? int(all) : static_cast<int>(all * m_position / m_text.size());
}

void PointText::readLine()
{
    const int feed = m_text.indexOf(QLatin1Char('\n'), m_position);
    const int end = feed < 0 ? m_text.size() : feed;
    const QString line = m_text.mid(m_position, end - m_position);
    m_position = end + 1;
    ++m_line;
    if (line.trimmed().isEmpty())
        return;
    const std::optional<PointRow> row = rowOf(line);
    if (!row)
        m_linesNotRead.push_back(m_line);
    else if (m_rows.size() < m_room)
        m_rows.push_back(*row);
    else
        m_tooLong = true;
}
