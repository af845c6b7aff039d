#include "BenchLanguage.h"
#include "BenchOptions.h"
#include "BenchSession.h"
#include "BenchWindow.h"
#include "MainJob.h"
#include "TextFile.h"
#include "WindowActivation.h"

#include <QApplication>
#include <QTextStream>
#include <QTimer>

namespace
{

constexpr int wrongUse = 2;

int fail(const QString &text)
{
    QTextStream(stderr) << QStringLiteral("velmar-bench: ") << text << '\n';
    return wrongUse;
}

int runDemo(BenchWindow &window, BenchSession &session, const QString &folder)
{
    QTextStream out(stdout);
    MainJob job(window, session.channel(), folder, out);
    QObject::connect(&job, &MainJob::finished, qApp, [](int exitCode) { QApplication::exit(exitCode); });
    QTimer::singleShot(0, &job, &MainJob::start);
    return QApplication::exec();
}

/// Gives the exit code, or that of a failure.
int writeLog(const QString &file, const BenchIOManager &channel, int exitCode)
{
    const std::optional<QString> reason = saveText(file, channel.log().asText().toUtf8());
    return reason ? fail(QStringLiteral("%1 could not be written: %2").arg(file, *reason)) : exitCode;
}

int run(const BenchOptions &options, const QString &plugin)
{
    QString error;
    const std::unique_ptr<BenchSession> session = BenchSession::open(options, &error);
    if (session == nullptr)
        return fail(error);
    BenchLanguage language(BenchLanguage::folders(QApplication::applicationDirPath()));
    if (!options.language.isEmpty() && !language.choose(options.language))
        return fail(QObject::tr("There is no translation \"%1\", only: %2.")
                        .arg(options.language, language.codes().join(QStringLiteral(", "))));
    BenchWindow window(session->channel(), plugin, options.observerMode);
    window.offerLanguage(language);
    const WindowActivation activation(&window);
    const bool isLoaded = window.loadModule();
    if (!isLoaded && !options.demoFolder.isEmpty())
        return fail(window.module().error());
    window.show();
    const int exitCode =
        options.demoFolder.isEmpty() ? QApplication::exec() : runDemo(window, *session, options.demoFolder);
    return options.logFile.isEmpty() ? exitCode : writeLog(options.logFile, session->channel(), exitCode);
}

/// Help and version need no display.
int explain(const BenchOptions &options, const QCoreApplication &)
{
    QTextStream(stdout) << (options.isHelpWanted ? BenchOptions::help() : BenchOptions::version());
    return 0;
}

QStringList allArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    const QStringList arguments = allArguments(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velmar-bench"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ROOM_VERSION));
    QString error;
    const auto options = BenchOptions::read(arguments, &error);
    if (!options)
        return fail(error);
    // Qt gets no arguments to see: it would take --plugin for itself.
    int programOnly = 1;
    if (options->isHelpWanted || options->isVersionWanted)
        return explain(*options, QCoreApplication(programOnly, argv));
    const QApplication application(programOnly, argv);
    const QString plugin =
        options->plugin.isEmpty() ? ModuleLibrary::find(QApplication::applicationDirPath()) : options->plugin;
    return run(*options, plugin);
}
