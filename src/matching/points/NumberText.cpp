#include "NumberText.h"

#include "CoordinateText.h"

#include <QString>

#include <algorithm>

namespace
{

bool isDigit(QChar letter)
{
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

bool isWholeNumber(const QString &text, bool signAllowed)
{
    const bool hasSign =
        signAllowed && (text.startsWith(QLatin1Char('+')) || text.startsWith(QLatin1Char('-')));
    bool inRange = false;
    text.toInt(&inRange);
    return inRange && std::all_of(text.begin() + (hasSign ? 1 : 0), text.end(), isDigit);
}

bool replaceUnlessWhole(QString &part, bool signAllowed)
{
    const bool valid = isWholeNumber(part, signAllowed);
    if (!valid)
        part = QStringLiteral("0");
    return valid;
}

} // namespace

bool normalizeNumberText(QString &text)
{
    QString number = text.trimmed();
    number.replace(QLatin1Char(','), QLatin1Char('.'));
    QString whole = number.section(QLatin1Char('.'), 0, 0);
    QString fraction = number.section(QLatin1Char('.'), 1, 1);
    fraction = fraction.leftJustified(CoordinateText::decimals, QLatin1Char('0'), true);
    const bool wholeValid = replaceUnlessWhole(whole, true);
    const bool fractionValid = replaceUnlessWhole(fraction, false);
    text = whole + QLatin1Char('.') + fraction;
    return wholeValid && fractionValid;
}
