#include "JobReport.h"

#include "AppliedTransformation.h"
#include "JobRecord.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

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

QString numbered(const MatchingPoints &points)
{
    std::string text;
    for (std::size_t i = 0; i < points.size(); ++i) {
        append(text, i + 1);
        for (const double coordinate : points[i]) {
            text += ' ';
            append(text, coordinate);
        }
        text += '\n';
    }
    return QString::fromStdString(text);
}

QString pairs(const MatchingEvaluation &evaluation)
{
    std::string text;
    for (std::size_t i = 0; i < evaluation.order.size(); ++i) {
        append(text, i + 1);
        text += ' ';
        append(text, static_cast<std::size_t>(evaluation.order[i]) + 1);
        text += ' ';
        append(text, evaluation.distancesMm[i]);
        text += '\n';
    }
    return QString::fromStdString(text);
}

/// With its offset from universal time, so that the moment is known wherever the report is read.
QString moment(const QDateTime &time)
{
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODate);
}

} // namespace

QString JobReport::of(const JobRecord &record)
{
    const RoomTrafoData after = appliedTransformation(record.evaluation.roomFromReference, record.scaling);
    return head(record) + newLine + lists(record) + newLine + result(record) + newLine +
           tr("Transformation that the controller gets") + newLine + transformation(after) + newLine +
           tr("Transformation of the controller before") + newLine + transformation(record.before) + newLine +
           notices(record);
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

QString JobReport::lists(const JobRecord &record)
{
    return tr("Reference points: number, x, y, z in mm") + newLine + numbered(record.references) + newLine +
           tr("Measured points: number, x, y, z in mm") + newLine + numbered(record.measured);
}

QString JobReport::result(const JobRecord &record)
{
    const bool preserved = record.order == MatchingEvaluation::Order::Preserved;
    return tr("Pairs: reference point, measured point, distance in mm") + newLine + pairs(record.evaluation) +
           (preserved ? tr("Order of the points: preserved") : tr("Order of the points: searched")) +
           newLine + tr("Residual error: %1 mm").arg(exact(record.evaluation.rmsMm)) + newLine;
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
