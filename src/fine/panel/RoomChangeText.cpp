#include "RoomChangeText.h"

#include "RoomChange.h"

#include <QStringList>

#include <cmath>

namespace
{

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

/// The letter of an axis, or the direction in brackets.
QString nameOf(const bsVector &axis)
{
    constexpr double leastOfAnAxis = 0.9999995; // less than a twentieth of a degree away
    if (axis.x > leastOfAnAxis)
        return QStringLiteral("x");
    if (axis.y > leastOfAnAxis)
        return QStringLiteral("y");
    if (axis.z > leastOfAnAxis)
        return QStringLiteral("z");
    return QStringLiteral("(%1, %2, %3)").arg(number(axis.x, 2), number(axis.y, 2), number(axis.z, 2));
}

} // namespace

QString RoomChangeText::of(const RoomChange &change)
{
    QStringList sentences;
    if (change.isMove())
        sentences << tr("The zero point moves by %1 mm.").arg(number(change.movedMm, 3));
    if (change.isTurn())
        sentences << tr("The axes turn by %1 degrees about %2.")
                         .arg(number(change.turnedDegrees, 3), nameOf(change.axis));
    if (change.isScaling())
        sentences << tr("The scaling changes from %1 to %2.")
                         .arg(number(change.scalingBefore, 5), number(change.scalingAfter, 5));
    return sentences.isEmpty() ? QString() : tr("With \"Apply\": %1").arg(sentences.join(QLatin1Char(' ')));
}
