#include "ScenarioFile.h"

#include "BuiltFiles.h"
#include "Scenario.h"
#include "TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

constexpr int patienceMs = 10000;

/// A tree in which the scenario folder of that place, seen from the returned programs' folder, has
/// "bare.json".
QString programsWith(const QTemporaryDir &tree, int place)
{
    const QString programs = tree.filePath("one/two/three/bin");
    const QString folder = ScenarioFile::folders(programs).at(place);
    QFile file(folder + "/bare.json");
    if (!QDir().mkpath(programs) || !QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly))
        return {};
    return programs;
}

} // namespace

class ScenarioFileTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindASuppliedScenarioByItsName_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("found");
        QTest::newRow("build tree") << 0 << "bench/scenarios/bare.json";
        QTest::newRow("installed") << 1 << "one/two/three/share/room-adjustment-bench/scenarios/bare.json";
    }

    void shouldFindASuppliedScenarioByItsName()
    {
        QFETCH(int, place);
        QFETCH(QString, found);
        const QTemporaryDir tree;
        const QString programs = programsWith(tree, place);
        QVERIFY(!programs.isEmpty());
        QCOMPARE(ScenarioFile::find("bare", programs), tree.filePath(found));
    }

    void shouldTakeAFileBeforeANameOfItsOwn()
    {
        const QTemporaryDir tree;
        const QString programs = programsWith(tree, 1);
        QFile own(tree.filePath("bare"));
        QVERIFY(own.open(QIODevice::WriteOnly));
        QCOMPARE(ScenarioFile::find(own.fileName(), programs), own.fileName());
    }

    void shouldHandBackWhatIsNotThere()
    {
        const QTemporaryDir tree;
        const QString programs = programsWith(tree, 1);
        QCOMPARE(ScenarioFile::find("unknown", programs), QString("unknown"));
        QCOMPARE(ScenarioFile::find("../scenarios/bare", programs), QString("../scenarios/bare"));
    }

    void shouldFindTheScenariosOfThisBuild()
    {
        const QString folder = QFileInfo(BuiltFiles::controller()).path();
        const QStringList supplied = QDir(BuiltFiles::scenarios()).entryList({"*.json"}, QDir::Files);
        QVERIFY(!supplied.isEmpty());
        for (const QString &file : supplied) {
            const QString found = ScenarioFile::find(QFileInfo(file).baseName(), folder);
            std::string error;
            QVERIFY2(Scenario::load(found.toStdString(), &error), error.c_str());
        }
    }

    void shouldServeASuppliedScenarioByItsName()
    {
        QProcess controller;
        controller.start(BuiltFiles::controller(), {"--port", "0", "--scenario", "two-tools"});
        const QByteArray said =
            controller.waitForReadyRead(patienceMs) ? controller.readLine() : QByteArray();
        controller.kill();
        controller.waitForFinished(patienceMs);
        QVERIFY2(said.startsWith("listening on "), controller.readAllStandardError().constData());
    }
};

ROOM_TEST_CLASS(ScenarioFileTest)

#include "ScenarioFileTest.moc"
