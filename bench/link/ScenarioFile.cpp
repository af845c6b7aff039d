#include "ScenarioFile.h"

#include <QDir>
#include <QFileInfo>

namespace ScenarioFile
{

QStringList folders(const QString &executableFolder)
{
    const QDir folder(executableFolder);
    QStringList places;
    for (const char *place : {"../../../../bench/scenarios", ROOM_SCENARIOS_FROM_PROGRAMS})
        places << QDir::cleanPath(folder.absoluteFilePath(QLatin1String(place)));
    return places;
}

QString find(const QString &wanted, const QString &executableFolder)
{
    if (QFileInfo::exists(wanted) || wanted.contains(QLatin1Char('/')))
        return wanted;
    const auto places = folders(executableFolder);
    for (const QString &folder : places) {
        const QString file = folder + QLatin1Char('/') + wanted + QLatin1String(".json");
        if (QFileInfo(file).isFile())
            return file;
    }
    return wanted;
}

} // namespace ScenarioFile
