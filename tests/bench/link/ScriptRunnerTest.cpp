#include "ScriptRunner.h"
#include "BenchIOManager.h"
#include "LocalController.h"
#include "SimController.h"
#include "TestRegistry.h"

#include <QTemporaryDir>
#include <QtTest>

namespace
{

struct ScriptBench {
    SimController controller;
    LocalController link{controller};
    BenchIOManager channel{link};
    ScriptRunner runner{channel};

    bool run(std::initializer_list<const char *> lines)
    {
        for (const char *line : lines) {
            if (!runner.run(QString::fromLatin1(line)))
                return false;
        }
        return true;
    }
};

} // namespace

class ScriptRunnerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCompareAnswers()
    {
        ScriptBench bench;
        QVERIFY(
            bench.run({"# a remark", "", "velmar2 get status active", "expect velmar2 get status active none",
                       "sim get counts", "expect sim get counts 4 1 1 1 6"}));
        QVERIFY(!bench.run({"velmar2 get status active", "expect velmar2 get status active mea"}));
        QCOMPARE(bench.runner.error(), QStringLiteral("the answer was: velmar2 get status active none"));
        QVERIFY(!bench.run({"sim tool 4 measure"}));
        QCOMPARE(bench.runner.error(), QStringLiteral("sim err \"no such tool\""));
        QVERIFY(!bench.run({"dance"}));
    }

    void shouldLetTimePassOnTheSteppedClock()
    {
        ScriptBench bench;
        QVERIFY(bench.run({"sim clock stepped", "wait 1.5", "frames 30"}));
        QVERIFY(qAbs(bench.controller.time() - 2.0) < 1e-6);
    }

    void shouldLetTimePassOnTheRealClock()
    {
        ScriptBench bench;
        const double before = bench.controller.time();
        QVERIFY(bench.run({"wait 0.2"}));
        QVERIFY(bench.controller.time() - before > 0.1);
    }

    void shouldCompareTheMeanOfTheTip()
    {
        ScriptBench bench;
        QVERIFY(bench.run({"sim clock stepped", "velmar2 tracking start", "sim tool 1 noise 0.1",
                           "sim tool 1 tip 1 2 3", "expect-near tool 1 1 2 3 0.1"}));
        QVERIFY(!bench.run({"expect-near tool 1 1 2 4 0.1"}));
        QVERIFY(bench.run({"sim record formats second", "expect-near tool 1 1 2 3 0.1"}));
        QVERIFY(!bench.run({"sim tool 1 tracked no", "expect-near tool 1 1 2 3 0.1"}));
        QCOMPARE(bench.runner.error(), QStringLiteral("only 0 positions were reported"));
    }

    void shouldRunAFileUpToTheFirstFailure()
    {
        ScriptBench bench;
        const QTemporaryDir folder;
        const QString script = folder.filePath(QStringLiteral("run.txt"));
        const QString log = folder.filePath(QStringLiteral("log.txt"));
        QFile file(script);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("sim seed 3\nlog save " + log.toLatin1() + "\nsim seed x\nsim seed 4\n");
        file.close();
        QVERIFY(!bench.runner.runFile(script));
        QVERIFY(bench.runner.error().startsWith(script + QStringLiteral(":3: sim seed x: sim err")));
        QFile saved(log);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("control\tsim seed 3\t0\tsim ok"));
        QVERIFY(!bench.runner.runFile(QStringLiteral("no/such/file")));
    }
};

ROOM_TEST_CLASS(ScriptRunnerTest)
#include "ScriptRunnerTest.moc"
