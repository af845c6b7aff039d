#include "ControllerTrafo.h"

#include "ControllerLink.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace
{

constexpr double rotationTolerance = 1e-7;
constexpr double translationToleranceMm = 5e-4;
constexpr int rotationDecimals = 8;
constexpr int translationDecimals = 3;
constexpr int scalingDecimals = 5;

template <std::size_t size>
bool readNumbers(ControllerLink &link, const char *parameter, std::array<double, size> *values)
{
    const QString asked = QStringLiteral("velmar2 get tracking ") + QLatin1String(parameter);
    const LinkAnswer answer = link.ask(asked.toStdString());
    const QString text = QString::fromStdString(answer.text);
    if (!answer.arrived || !text.startsWith(asked + QLatin1Char(' ')))
        return false;
    const QStringList words = text.mid(asked.size() + 1).split(QLatin1Char(' '));
    bool areNumbers = words.size() == static_cast<int>(size);
    for (std::size_t i = 0; areNumbers && i < size; ++i)
        (*values)[i] = words.at(static_cast<int>(i)).toDouble(&areNumbers);
    return areNumbers;
}

template <std::size_t size>
bool areNear(const std::array<double, size> &a, const std::array<double, size> &b, double tolerance)
{
    for (std::size_t i = 0; i < size; ++i) {
        // Not the other way round, because nothing is near a NaN.
        if (!(std::fabs(a[i] - b[i]) < tolerance))
            return false;
    }
    return true;
}

template <std::size_t size>
QString joined(const std::array<double, size> &values, std::size_t begin, std::size_t count, int decimals)
{
    QStringList words;
    for (std::size_t i = begin; i < begin + count; ++i)
        words << QLocale::c().toString(values[i], 'f', decimals).remove(QLatin1Char(','));
    return words.join(QLatin1Char(' '));
}

} // namespace

std::optional<ControllerTrafo> ControllerTrafo::read(ControllerLink &link)
{
    ControllerTrafo trafo;
    std::array<double, 1> scaling = {1.0};
    if (!readNumbers(link, "extra_rotation", &trafo.rotation) ||
        !readNumbers(link, "extra_translation", &trafo.translationMm) ||
        !readNumbers(link, "extra_scaling", &scaling))
        return std::nullopt;
    trafo.scaling = scaling[0];
    return trafo;
}

bool ControllerTrafo::isNear(const ControllerTrafo &other) const
{
    return areNear(rotation, other.rotation, rotationTolerance) &&
           areNear(translationMm, other.translationMm, translationToleranceMm) &&
           std::fabs(scaling - other.scaling) < rotationTolerance;
}

QString ControllerTrafo::asText() const
{
    const QString space = QStringLiteral("\n              ");
    return QStringLiteral("  rotation    ") + joined(rotation, 0, 3, rotationDecimals) + space +
           joined(rotation, 3, 3, rotationDecimals) + space + joined(rotation, 6, 3, rotationDecimals) +
           QStringLiteral("\n  translation ") + joined(translationMm, 0, 3, translationDecimals) +
           QStringLiteral("\n  scaling     ") + joined(std::array<double, 1>{scaling}, 0, 1, scalingDecimals);
}
