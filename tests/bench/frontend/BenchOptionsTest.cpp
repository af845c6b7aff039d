#include "BenchOptions.h"

#include "TestRegistry.h"

#include <QtTest>

namespace
{

std::optional<BenchOptions> read(const QStringList &arguments, QString *error = nullptr)
{
    QString unused;
    return BenchOptions::read(QStringList(QStringLiteral("velmar-bench")) + arguments,
                              error != nullptr ? error : &unused);
}

} // namespace

class BenchOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAskForNothingWithoutArguments()
    {
        const auto options = read({});
        QVERIFY(options.has_value());
        QVERIFY(options->plugin.isEmpty());
        QVERIFY(options->controller.isEmpty());
        QVERIFY(options->startLines.isEmpty());
        QVERIFY(!options->observerMode);
        QVERIFY(!options->cameras.has_value());
        QVERIFY(!options->isHelpWanted);
        QVERIFY(!options->isVersionWanted);
    }

    void shouldTurnTheStateIntoLinesForTheController_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("lines");
        const auto row = [](const char *name, const QStringList &arguments, const QStringList &lines) {
            QTest::newRow(name) << arguments << lines;
        };
        row("version of two numbers", {QStringLiteral("--interface-version"), QStringLiteral("1.24")},
            {QStringLiteral("sim version 1 24 -1")});
        row("version of three numbers", {QStringLiteral("--interface-version"), QStringLiteral("0.16.2")},
            {QStringLiteral("sim version 0 16 2")});
        row("seed", {QStringLiteral("--seed"), QStringLiteral("42")}, {QStringLiteral("sim seed 42")});
        row("locked", {QStringLiteral("--locked")}, {QStringLiteral("sim locked yes")});
        row("unavailable", {QStringLiteral("--unavailable")}, {QStringLiteral("sim available no")});
        row("strict", {QStringLiteral("--strict")}, {QStringLiteral("sim strict yes")});
        row("transformation",
            {QStringLiteral("--extra-translation"), QStringLiteral("1 2  3"),
             QStringLiteral("--extra-scaling"), QStringLiteral("1.01"), QStringLiteral("--extra-rotation"),
             QStringLiteral("1 0 0 0 1 0 0 0 1")},
            {QStringLiteral("velmar2 set tracking extra_rotation 1 0 0 0 1 0 0 0 1"),
             QStringLiteral("velmar2 set tracking extra_translation 1 2 3"),
             QStringLiteral("velmar2 set tracking extra_scaling 1.01")});
        row("several control lines",
            {QStringLiteral("--control"), QStringLiteral("tool 1 tremor 2"), QStringLiteral("--control"),
             QStringLiteral("camera 2 room none")},
            {QStringLiteral("sim tool 1 tremor 2"), QStringLiteral("sim camera 2 room none")});
        row("control line with its lead", {QStringLiteral("--control"), QStringLiteral("sim seed 7")},
            {QStringLiteral("sim seed 7")});
        row("fault with its lead", {QStringLiteral("--fault"), QStringLiteral("sim fault fail 1 status")},
            {QStringLiteral("sim fault fail 1 status")});
        row("fault", {QStringLiteral("--fault"), QStringLiteral("fail 3 status")},
            {QStringLiteral("sim fault fail 3 status")});
    }

    void shouldTurnTheStateIntoLinesForTheController()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, lines);
        const auto options = read(arguments);
        QVERIFY(options.has_value());
        QCOMPARE(options->startLines, lines);
    }

    void shouldTakeTheFilesThatAreNamed()
    {
        const auto options =
            read({QStringLiteral("--script"), QStringLiteral("a.txt"), QStringLiteral("--log"),
                  QStringLiteral("b.txt"), QStringLiteral("--demo"), QStringLiteral("c")});
        QVERIFY(options.has_value());
        QCOMPARE(options->script, QStringLiteral("a.txt"));
        QCOMPARE(options->logFile, QStringLiteral("b.txt"));
        QCOMPARE(options->demoFolder, QStringLiteral("c"));
    }

    void shouldTakeTheNameOfTheBackend()
    {
        QCOMPARE(read({})->backendName, QString());
        QCOMPARE(read({QStringLiteral("--backend-name"), QStringLiteral("OKTAVO3")})->backendName,
                 QStringLiteral("OKTAVO3"));
    }

    void shouldSayWhatIsWrong_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("mentioned");
        QTest::newRow("unknown option")
            << QStringList{QStringLiteral("--nonsense")} << QStringLiteral("nonsense");
        QTest::newRow("stray word") << QStringList{QStringLiteral("stray")} << QStringLiteral("stray");
        QTest::newRow("no value") << QStringList{QStringLiteral("--plugin")} << QStringLiteral("plugin");
        QTest::newRow("one number") << QStringList{QStringLiteral("--interface-version"), QStringLiteral("1")}
                                    << QStringLiteral("--interface-version");
        QTest::newRow("letters") << QStringList{QStringLiteral("--interface-version"), QStringLiteral("1.x")}
                                 << QStringLiteral("--interface-version");
        QTest::newRow("cameras") << QStringList{QStringLiteral("--cameras"), QStringLiteral("-1")}
                                 << QStringLiteral("--cameras");
        QTest::newRow("cameras of another process")
            << QStringList{QStringLiteral("--controller"), QStringLiteral("localhost:1"),
                           QStringLiteral("--cameras"), QStringLiteral("3")}
            << QStringLiteral("--controller");
    }

    void shouldSayWhatIsWrong()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, mentioned);
        QString error;
        QVERIFY(!read(arguments, &error).has_value());
        QVERIFY2(error.contains(mentioned), qPrintable(error));
    }

    void shouldListEveryOptionInItsHelp()
    {
        QVERIFY(read({QStringLiteral("--help")})->isHelpWanted);
        QVERIFY(read({QStringLiteral("--help-all")})->isHelpWanted);
        QVERIFY(read({QStringLiteral("--version")})->isVersionWanted);
        const QString help = BenchOptions::help();
        for (const char *name :
             {"--plugin", "--controller", "--scenario", "--observer", "--demo", "--seed", "--script"})
            QVERIFY2(help.contains(QLatin1String(name)), name);
    }
};

ROOM_TEST_CLASS(BenchOptionsTest)

#include "BenchOptionsTest.moc"
