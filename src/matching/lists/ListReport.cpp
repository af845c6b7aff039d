#include "ListReport.h"

QString ListReport::notSaved(const QString &fileName)
{
    return tr("The reference points could not be saved in \"%1\". An older file of that name is as it was.")
        .arg(fileName);
}
