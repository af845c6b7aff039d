#include "BenchLanguage.h"
#include "BenchOptions.h"
#include "BenchSession.h"
#include "BenchWindow.h"
#include "MainJob.h"
#include "ScriptRunner.h"
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

/// False when a line of the script failed; the program then ends.
bool runScript(const QString &file, BenchSession &session, BenchWindow &window)
{
    ScriptRunner script(session.channel());
    const bool isDone = script.runFile(file);
    window.showState();
    if (!isDone)
        QApplication::exit(fail(script.error()));
    return isDone;
}

/// Runs the event loop, and in it what the options ask for: the script, then the main job.
int execute(const BenchOptions &options, BenchSession &session, BenchWindow &window)
{
    QTextStream out(stdout);
    MainJob job(window, session.channel(), options.demoFolder, out);
    QObject::connect(&job, &MainJob::finished, qApp, [](int exitCode) { QApplication::exit(exitCode); });
    QTimer::singleShot(0, &job, [&] {
        const bool isReady = options.script.isEmpty() || runScript(options.script, session, window);
        if (isReady && !options.demoFolder.isEmpty())
            job.start();
    });
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
        return fail(QStringLiteral("There is no translation \"%1\", only: %2.")
                        .arg(options.language, language.codes().join(QStringLiteral(", "))));
    BenchWindow window(session->channel(), plugin, options.observerMode);
    window.offerLanguage(language);
    window.setBackendName(options.backendName);
    const WindowActivation activation(&window);
    const bool isLoaded = window.loadModule();
    if (!isLoaded && !options.demoFolder.isEmpty())
        return fail(window.module().error());
    window.show();
    const int exitCode = execute(options, *session, window);
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
