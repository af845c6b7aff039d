#include "BuiltFiles.h"
#include "ControllerProcess.h"
#include "TestRegistry.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

constexpr int patienceMs = 60000;

/// One run of the program to its end.
struct ProgramRun {
    explicit ProgramRun(const QStringList &arguments,
                        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
        QProcess process;
        // The program unloads the plug-in before leaks are counted, so that what the drivers keep has no name
        // by which it could be left out; tests/module counts what the plug-in itself keeps.
        QProcessEnvironment withoutLeaks = environment;
        withoutLeaks.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process.setProcessEnvironment(withoutLeaks);
        process.start(BuiltFiles::bench(), arguments);
        if (!process.waitForFinished(patienceMs))
            process.kill();
        else if (process.exitStatus() == QProcess::NormalExit)
            exitCode = process.exitCode();
        out = QString::fromLocal8Bit(process.readAllStandardOutput());
        err = QString::fromLocal8Bit(process.readAllStandardError());
    }

    int exitCode = -1;
    QString out;
    QString err;
};

QStringList demo(const QTemporaryDir &folder, const QStringList &more = {})
{
    return QStringList{QStringLiteral("--plugin"), BuiltFiles::fakeModule(), QStringLiteral("--demo"),
                       folder.filePath(QStringLiteral("pictures"))} +
           more;
}

/// The name of a script with these lines; empty when it cannot be written.
QString scriptFile(const QTemporaryDir &folder, const QByteArray &lines)
{
    QFile file(folder.filePath(QStringLiteral("script.txt")));
    return file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size() ? file.fileName() : QString();
}

const QString startTracking = QStringLiteral("velmar2 tracking start");
const QString stopTracking = QStringLiteral("velmar2 tracking stop");
const QString rotation = QStringLiteral(
    "tracking extra_rotation 0.98480775 -0.17364818 0.00000000 0.17364818 0.98480775 0.00000000 "
    "0.00000000 0.00000000 1.00000000");
const QString translation = QStringLiteral("tracking extra_translation -250.000 0.000 0.000");
const QString scaling = QStringLiteral("tracking extra_scaling 1.00000");

/// The texts of the commands and settings in the program's list of calls.
QStringList sentLines(const QString &out)
{
    QStringList lines;
    const auto allLines = out.split(QLatin1Char('\n'));
    for (const QString &line : allLines) {
        const QStringList cells = line.split(QLatin1Char('\t'));
        const QString operation = cells.value(2);
        if (operation == QLatin1String("sendCommand") || operation == QLatin1String("setParameter"))
            lines << cells.value(3);
    }
    return lines;
}

} // namespace

class BenchProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldExplainItselfWithoutADisplay_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("said");
        QTest::newRow("help") << QStringLiteral("--help") << QStringLiteral("--demo");
        QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("velmar-bench 2.0.14");
    }

    void shouldExplainItselfWithoutADisplay()
    {
        QFETCH(QString, option);
        QFETCH(QString, said);
        QProcessEnvironment noDisplay = QProcessEnvironment::systemEnvironment();
        noDisplay.remove(QStringLiteral("DISPLAY"));
        const ProgramRun run({option}, noDisplay);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(said), qPrintable(run.out));
    }

    void shouldRefuseWrongUse_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("mentioned");
        QTest::newRow("option") << QStringList{QStringLiteral("--nonsense")} << QStringLiteral("nonsense");
        QTest::newRow("state") << QStringList{QStringLiteral("--extra-scaling"), QStringLiteral("x")}
                               << QStringLiteral("extra_scaling x");
        QTest::newRow("language") << QStringList{QStringLiteral("--language"), QStringLiteral("xx")}
                                  << QStringLiteral("only: en, de");
        QTest::newRow("module") << QStringList{QStringLiteral("--plugin"), QStringLiteral("missing.so"),
                                               QStringLiteral("--demo"), QStringLiteral("unused")}
                                << QStringLiteral("missing.so");
    }

    void shouldRefuseWrongUse()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, mentioned);
        const ProgramRun run(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(mentioned), qPrintable(run.err));
    }

    void shouldDoTheMainJobAndSayWhatItTold()
    {
        const QTemporaryDir folder;
        const ProgramRun run(demo(folder));
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
        QVERIFY(run.out.contains(QStringLiteral("translation 0.000 0.000 0.000")));
        QVERIFY(run.out.contains(QStringLiteral("translation -250.000 0.000 0.000")));
        QVERIFY(
            run.out.contains(QStringLiteral("setParameter\ttracking extra_rotation 0.98480775 -0.17364818 "
                                            "0.00000000 0.17364818 0.98480775")));
        QCOMPARE(QDir(folder.filePath(QStringLiteral("pictures"))).entryList(QDir::Files).size(), 6);
    }

    void shouldDoTheMainJobOnTheModuleThatItFindsItself()
    {
        const QTemporaryDir folder;
        const ProgramRun run({QStringLiteral("--demo"), folder.filePath(QStringLiteral("pictures"))});
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
        QCOMPARE(sentLines(run.out),
                 (QStringList{startTracking, stopTracking, rotation, translation, scaling, startTracking,
                              stopTracking, rotation, translation, scaling}));
    }

    void shouldDoTheMainJobInGerman()
    {
        const QTemporaryDir folder;
        const ProgramRun run({QStringLiteral("--language"), QStringLiteral("de"), QStringLiteral("--demo"),
                              folder.filePath(QStringLiteral("pictures"))});
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
        QVERIFY(sentLines(run.out).contains(translation));
    }

    void shouldDoTheMainJobFromAnyStart_data()
    {
        QTest::addColumn<QStringList>("start");
        QTest::addColumn<QString>("translation");
        QTest::newRow("turned about z")
            << QStringList{QStringLiteral("--scenario"), BuiltFiles::scenario("turned-room.json")}
            << QStringLiteral("translation -129.500 -40.250 15.000");
        // -17.2837, 41.1246 and 174.3172 degrees: more decimals than the boxes have, and past the half turn.
        QTest::newRow("turned about all axes")
            << QStringList{QStringLiteral("--extra-rotation"),
                           QStringLiteral(
                               "-0.74957896 -0.07459067 0.65769873 0.28899385 -0.93080347 0.22380225 "
                               "0.59549470 0.35782835 0.71926694"),
                           QStringLiteral("--extra-translation"),
                           QStringLiteral("-1 -2 -3"),
                           QStringLiteral("--extra-scaling"),
                           QStringLiteral("1.01")}
            << QStringLiteral("translation -251.000 -2.000 -3.000");
    }

    void shouldDoTheMainJobFromAnyStart()
    {
        QFETCH(QStringList, start);
        QFETCH(QString, translation);
        const QTemporaryDir folder;
        const ProgramRun run(
            QStringList{QStringLiteral("--demo"), folder.filePath(QStringLiteral("pictures"))} + start);
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
        QVERIFY2(run.out.contains(translation), qPrintable(run.out));
    }

    void shouldFailTheMainJobWhenTheControllerDoesNotHoldIt()
    {
        const QTemporaryDir folder;
        const ProgramRun run(demo(
            folder, {QStringLiteral("--fault"), QStringLiteral("fail 1 \"tracking extra_translation\"")}));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.out.contains(QStringLiteral("does not hold")));
    }

    void shouldDoTheMainJobOnAControllerInAnotherProcess()
    {
        const ControllerProcess controller;
        const QTemporaryDir folder;
        const ProgramRun run(demo(folder, {QStringLiteral("--controller"), controller.address()}));
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
    }

    void shouldRunAScriptBeforeTheMainJob()
    {
        const QTemporaryDir folder;
        const QString script = scriptFile(folder, "sim version 1 17 -1\n# a remark\n"
                                                  "velmar2 get tracking available\n");
        QVERIFY(!script.isEmpty());
        const ProgramRun run(demo(folder, {QStringLiteral("--script"), script}));
        QVERIFY2(run.exitCode == 0, qPrintable(run.out + run.err));
        QVERIFY(run.out.contains(QStringLiteral("control\tsim version 1 17 -1\t0\tsim ok")));
    }

    void shouldRunAScriptOnAControllerInAnotherProcess()
    {
        const ControllerProcess controller;
        const QTemporaryDir folder;
        const QString script =
            scriptFile(folder, "sim locked yes\nsim get locked\nexpect sim get locked no\n");
        const ProgramRun run({QStringLiteral("--plugin"), BuiltFiles::fakeModule(),
                              QStringLiteral("--controller"), controller.address(),
                              QStringLiteral("--script"), script});
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(QStringLiteral("the answer was: sim get locked yes")), qPrintable(run.err));
    }

    void shouldEndAtALineOfTheScriptThatFails_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("said");
        QTest::newRow("refused") << QByteArray("# first\nsim seed x\nsim seed 1\n")
                                 << QStringLiteral(":2: sim seed x: sim err \"expected: a whole number");
        QTest::newRow("another answer")
            << QByteArray("velmar2 get status active\nexpect velmar2 get status active mea\n")
            << QStringLiteral(":2: expect velmar2 get status active mea: the answer was: velmar2 get status "
                              "active none");
        QTest::newRow("unknown") << QByteArray("\n\ndance\n") << QStringLiteral(":3: dance: unknown line");
    }

    void shouldEndAtALineOfTheScriptThatFails()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QString, said);
        const QTemporaryDir folder;
        const QString script = scriptFile(folder, lines);
        QVERIFY(!script.isEmpty());
        const ProgramRun run(demo(folder, {QStringLiteral("--script"), script}));
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(script + said), qPrintable(run.err));
        QVERIFY(!QDir(folder.filePath(QStringLiteral("pictures"))).exists());
    }

    void shouldNameAScriptThatCannotBeRead()
    {
        const QTemporaryDir folder;
        const QString script = folder.filePath(QStringLiteral("missing.txt"));
        const ProgramRun run(demo(folder, {QStringLiteral("--script"), script}));
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(script), qPrintable(run.err));
    }

    void shouldWriteTheConversation()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("log.txt"));
        const ProgramRun run(demo(folder, {QStringLiteral("--log"), file}));
        QCOMPARE(run.exitCode, 0);
        QFile log(file);
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray text = log.readAll();
        QVERIFY(text.contains("setParameter\ttracking extra_translation -250.000 0.000 0.000\t0\t"));
        QVERIFY2(text.startsWith("1\t"), text.constData());
    }

    void shouldSayThatTheConversationCannotBeWritten()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("missing/log.txt"));
        const ProgramRun run(demo(folder, {QStringLiteral("--log"), file}));
        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.err.contains(file), qPrintable(run.err));
    }
};

ROOM_TEST_CLASS(BenchProgramTest)

#include "BenchProgramTest.moc"
