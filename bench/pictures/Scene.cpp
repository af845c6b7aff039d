#include "Scene.h"

#include <QProcess>

namespace
{

/// Takes what stands before the lines of the play. Nothing when the line belongs to the play, else whether it
/// is good.
std::optional<bool> readSetting(const QString &line, Scene *scene)
{
    QStringList words = QProcess::splitCommand(line);
    const QString verb = words.takeFirst();
    if (verb == QLatin1String("bench")) {
        scene->benchOptions << words;
        return !words.isEmpty();
    }
    if (verb == QLatin1String("scale")) {
        scene->scale = words.value(0);
        return words.size() == 1 && scene->scale.toDouble() > 0.0;
    }
    if (verb == QLatin1String("palette")) {
        scene->isDark = true;
        return words == QStringList(QStringLiteral("dark"));
    }
    if (verb == QLatin1String("screen"))
        return words.size() == 1;
    return std::nullopt;
}

} // namespace

std::optional<Scene> Scene::read(const QString &text, QString *error)
{
    Scene scene;
    int number = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &whole : lines) {
        const QString line = whole.simplified();
        ++number;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const std::optional<bool> setting = readSetting(line, &scene);
        if (!setting) {
            scene.lines.push_back({number, line});
        } else if (!*setting || !scene.lines.empty()) {
            *error = QStringLiteral("line %1 is no setting, or stands too late: %2").arg(number).arg(line);
            return std::nullopt;
        }
    }
    if (scene.lines.empty()) {
        *error = QStringLiteral("nothing happens in this scene");
        return std::nullopt;
    }
    return scene;
}
