#include "ListReport.h"

#include "PointLimit.h"

QString ListReport::tooManyPoints()
{
    return tr("A list holds %1 points at most; there would be more. The list is as it was.")
        .arg(largestPointCount);
}

QString ListReport::notSaved(const QString &fileName)
{
    return tr("The reference points could not be saved in \"%1\". An older file of that name is as it was.")
        .arg(fileName);
}
