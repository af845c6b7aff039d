#include "ListReport.h"

#include "PointLimit.h"

#include <QStringList>

#include <algorithm>

QString ListReport::tooManyPoints()
{
    return tr("A list holds %1 points at most; there would be more. The list is as it was.")
        .arg(largestPointCount);
}

QString ListReport::notRead(const std::vector<int> &lines)
{
    constexpr std::size_t listed = 10;
    QStringList numbers;
    for (std::size_t i = 0; i < std::min(lines.size(), listed); ++i)
        numbers += QString::number(lines[i]);
    if (lines.size() > listed)
        numbers += QStringLiteral("...");
    return tr("These lines of the pasted text are not three numbers and were left out: %1.")
        .arg(numbers.join(QStringLiteral(", ")));
}

QString ListReport::notSaved(const QString &fileName)
{
    return tr("The reference points could not be saved in \"%1\". An older file of that name is as it was.")
        .arg(fileName);
}
