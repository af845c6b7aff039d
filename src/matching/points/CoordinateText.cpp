#include "CoordinateText.h"

#include <array>
#include <cmath>
#include <optional>

namespace
{

constexpr double hundredthsPerMm = 100.0;
constexpr qint64 ten = 10;

/// The multiplication below is sure to a tenth of a millionth up to here.
constexpr double largestHundredths = 1e8;
/// Closer than this to the middle between two, the exact digits decide.
constexpr double middle = 0.5 - 1e-6;

/// The nearest hundredths, signed even when zero, unless the coordinate is; nothing where only the exact
/// digits tell.
std::optional<double> hundredthsOf(double coordinateMm)
{
    const double hundredths = coordinateMm * hundredthsPerMm + 0.0;
    if (!(std::fabs(hundredths) < largestHundredths))
        return std::nullopt;
    const double nearest = std::nearbyint(hundredths);
    if (!(std::fabs(hundredths - nearest) < middle))
        return std::nullopt;
    return nearest;
}

QString exactText(double coordinateMm)
{
    return QString::number(coordinateMm, 'f', CoordinateText::decimals);
}

} // namespace

QString CoordinateText::of(double coordinateMm)
{
    const std::optional<double> hundredths = hundredthsOf(coordinateMm);
    if (!hundredths || !(std::fabs(*hundredths) > 0.0))
        return exactText(coordinateMm);
    std::array<QChar, 16> letters;
    QChar *const end = letters.data() + letters.size();
    QChar *letter = end;
    auto rest = static_cast<qint64>(std::fabs(*hundredths));
    for (int digit = 0; rest > 0 || digit <= decimals; ++digit, rest /= ten) {
        if (digit == decimals)
            *--letter = QLatin1Char('.');
        *--letter = QLatin1Char(static_cast<char>('0' + rest % ten));
    }
    if (*hundredths < 0.0)
        *--letter = QLatin1Char('-');
    return QString(letter, static_cast<int>(end - letter));
}

double CoordinateText::shownNumber(double coordinateMm)
{
    const std::optional<double> hundredths = hundredthsOf(coordinateMm);
    return hundredths ? *hundredths / hundredthsPerMm : exactText(coordinateMm).toDouble();
}
