#include "PictureComparison.h"
#include "ScenePlay.h"
#include "TextFile.h"

#include <QApplication>
#include <QDir>
#include <QTextStream>

#include <set>

namespace
{

constexpr int wrongUse = 2;
constexpr qint64 longestScene = 1000000;

int fail(const QString &text, int exitCode = 1)
{
    QTextStream(stderr) << QStringLiteral("bench-pictures: ") << text << '\n';
    return exitCode;
}

/// Plays a scene and leaves its pictures in the folder.
int play(const QString &file, const QString &folder, int argc, char **argv)
{
    QString error;
    const std::optional<QByteArray> text = readText(file, longestScene, &error);
    if (!text)
        return fail(file + QStringLiteral(": ") + error, wrongUse);
    const std::optional<Scene> scene = Scene::read(QString::fromUtf8(*text), &error);
    if (!scene)
        return fail(file + QStringLiteral(": ") + error, wrongUse);
    qputenv("QT_SCALE_FACTOR", scene->scale.toLatin1());
    const QApplication application(argc, argv);
    const std::unique_ptr<ScenePlay> play = ScenePlay::prepare(*scene, folder, &error);
    if (play == nullptr || !QDir().mkpath(folder))
        return fail(file + QStringLiteral(": ") + error, wrongUse);
    QObject::connect(play.get(), &ScenePlay::finished, qApp, [&](const QString &failure) {
        QApplication::exit(failure.isEmpty() ? 0 : fail(file + QStringLiteral(": ") + failure));
    });
    play->start();
    return QApplication::exec();
}

std::set<QString> pictures(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files);
    return {names.begin(), names.end()};
}

/// Fails when a picture is missing in one of the folders, or looks different there.
int compare(const QString &made, const QString &kept, bool isWhole)
{
    std::set<QString> names = pictures(made);
    if (names.empty())
        return fail(QStringLiteral("there are no pictures in ") + made);
    if (isWhole)
        names.merge(pictures(kept));
    int exitCode = 0;
    for (const QString &name : names) {
        const auto difference = PictureComparison::visibleDifference(QImage(QDir(made).filePath(name)),
                                                                     QImage(QDir(kept).filePath(name)));
        if (difference)
            exitCode = fail(name + QStringLiteral(": ") + *difference);
    }
    return exitCode;
}

} // namespace

/// bench-pictures SCENE FOLDER           makes the pictures of a scene
/// bench-pictures --compare MADE KEPT    compares the pictures of two folders
/// bench-pictures --compare-made MADE KEPT    the same, but only those that are in the first one
int main(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    if (words.size() == 3 && words[0] == QLatin1String("--compare"))
        return compare(words[1], words[2], true);
    if (words.size() == 3 && words[0] == QLatin1String("--compare-made"))
        return compare(words[1], words[2], false);
    int programOnly = 1;
    if (words.size() == 2)
        return play(words[0], words[1], programOnly, argv);
    return fail(QStringLiteral("give SCENE and FOLDER, or --compare and two folders"), wrongUse);
}
