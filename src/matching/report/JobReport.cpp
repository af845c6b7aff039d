#include "JobReport.h"

#include "AppliedTransformation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace
{

const QLatin1Char newLine('\n');
const QLatin1Char blank(' ');

/// Long lists are put together without a text of its own for each number.
void append(std::string &text, std::size_t number)
{
    text += std::to_string(number);
}

/// The shortest text that is read back as the same number; never a negative zero.
void append(std::string &text, double value)
{
    constexpr std::size_t longest = std::numeric_limits<double>::max_exponent10 + 32;
    char digits[longest];
    const auto [end, error] =
        std::to_chars(std::begin(digits), std::end(digits), value + 0.0, std::chars_format::fixed);
    if (error == std::errc())
        text.append(digits, end);
}

QString exact(double value)
{
    std::string text;
    append(text, value);
    return QString::fromStdString(text);
}

/// As the controller is told it: what would print as a negative zero is a zero.
QString told(double value, int decimals)
{
    const double halfDecimal = 0.5 * std::pow(10.0, -decimals);
    const bool isZero = value < 0.0 && value > -halfDecimal;
    return QString::number(isZero ? 0.0 : value + 0.0, 'f', decimals);
}

template <typename Values>
QString told(const Values &values, int decimals)
{
    QString text;
    for (const double value : values)
        text += (text.isEmpty() ? QString() : QString(blank)) + told(value, decimals);
    return text;
}

void appendPoint(std::string &text, const MatchingPoints &points, std::size_t line)
{
    append(text, line + 1);
    for (const double coordinate : points[line]) {
        text += ' ';
        append(text, coordinate);
    }
    text += '\n';
}

void appendReference(std::string &text, const JobRecord &record, std::size_t line)
{
    appendPoint(text, record.references, line);
}

void appendMeasured(std::string &text, const JobRecord &record, std::size_t line)
{
    appendPoint(text, record.measured, line);
}

void appendPair(std::string &text, const JobRecord &record, std::size_t line)
{
    append(text, line + 1);
    text += ' ';
    append(text, static_cast<std::size_t>(record.evaluation.order[line]) + 1);
    text += ' ';
    append(text, record.evaluation.distancesMm[line]);
    text += '\n';
}

/// With its offset from universal time, so that the moment is known wherever the report is read.
QString moment(const QDateTime &time)
{
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODate);
}

} // namespace

QString JobReport::of(const JobRecord &record)
{
    JobReport report(record);
    while (report.doPiece()) {
    }
    return report.text();
}

JobReport::JobReport(JobRecord record)
    : m_record(std::move(record))
{
    const QString references = tr("Reference points: number, x, y, z in mm") + newLine;
    const QString measured = tr("Measured points: number, x, y, z in mm") + newLine;
    const QString pairs = tr("Pairs: reference point, measured point, distance in mm") + newLine;
    m_parts = {{head(m_record) + newLine + references, m_record.references.size(), &appendReference},
               {newLine + measured, m_record.measured.size(), &appendMeasured},
               {newLine + pairs, m_record.evaluation.order.size(), &appendPair},
               {result(m_record), 0, nullptr}};
}

bool JobReport::doPiece()
{
    constexpr std::size_t linesOfPiece = 500;
    if (m_part == m_parts.size())
        return false;
    const Part &part = m_parts[m_part];
    if (m_line == 0)
        m_text += part.head;
    std::string lines;
    for (const std::size_t end = std::min(m_line + linesOfPiece, part.lines); m_line < end;
         ++m_line, ++m_done)
        part.append(lines, m_record, m_line);
    m_text += QLatin1String(lines.data(), static_cast<int>(lines.size()));
    if (m_line == part.lines) {
        ++m_part;
        m_line = 0;
    }
    return m_part < m_parts.size();
}

int JobReport::percent() const
{
    constexpr std::size_t all = 100;
    std::size_t lines = 0;
    for (const Part &part : m_parts)
        lines += part.lines;
    return static_cast<int>(lines == 0 ? all : all * m_done / lines);
}

QString JobReport::head(const JobRecord &record)
{
    const MeasuringConditions &conditions = record.conditions;
    return tr("Room adjustment based on reference points") + newLine +
           tr("Date and time: %1").arg(moment(record.time)) + newLine +
           tr("Module version: %1").arg(record.moduleVersion) + newLine +
           tr("Measurement tool: M%1").arg(conditions.tool) + newLine +
           tr("Duration of a measurement: %1 s").arg(exact(conditions.durationSeconds)) + newLine +
           tr("Tip tolerance: %1 mm").arg(exact(conditions.toleranceMm)) + newLine;
}

QString JobReport::result(const JobRecord &record)
{
    const bool preserved = record.order == MatchingEvaluation::Order::Preserved;
    const RoomTrafoData after = appliedTransformation(record.evaluation.roomFromReference, record.scaling);
    return (preserved ? tr("Order of the points: preserved") : tr("Order of the points: searched")) +
           newLine + tr("Residual error: %1 mm").arg(exact(record.evaluation.rmsMm)) + newLine + newLine +
           tr("Transformation that the controller gets") + newLine + transformation(after) + newLine +
           tr("Transformation of the controller before") + newLine + transformation(record.before) + newLine +
           notices(record);
}

QString JobReport::transformation(const RoomTrafoData &data)
{
    return tr("Rotation, row by row: %1").arg(told(data.rotation, rotationDecimals)) + newLine +
           tr("Translation in mm: %1").arg(told(data.translation, translationDecimals)) + newLine +
           tr("Scaling: %1").arg(told(data.scaling, scalingDecimals)) + newLine;
}

QString JobReport::notices(const JobRecord &record)
{
    if (record.notices.isEmpty())
        return tr("Notices: none") + newLine;
    return tr("Notices") + newLine + record.notices.join(newLine) + newLine;
}
