#include "TestRegistry.h"

#include "BuiltFiles.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

using Settings = QMap<QString, QString>;

/// The exit code of the program in which three functions assert nothing, with these variables set.
int exitCode(const Settings &settings, const QStringList &arguments = QStringList())
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *own : {"ROOM_TEST_CLASS", "ROOM_TEST_LANGUAGE", "ROOM_EXPECT_DECIMAL_COMMA"})
        environment.remove(QString::fromLatin1(own));
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        environment.insert(setting.key(), setting.value());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(BuiltFiles::nothingAsserted(), arguments);
    return program.waitForFinished(-1) && program.exitStatus() == QProcess::NormalExit ? program.exitCode()
                                                                                       : -1;
}

} // namespace

Q_DECLARE_METATYPE(Settings)

class TestRegistryTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldCountTheFunctionsThatFail_data()
    {
        QTest::addColumn<Settings>("settings");
        QTest::addColumn<int>("code");
        const QString wanted = QStringLiteral("ROOM_TEST_CLASS");
        QTest::newRow("everything") << Settings() << 3;
        QTest::newRow("the class by its name") << Settings{{wanted, "NothingAsserted"}} << 3;
        QTest::newRow("one that asserts") << Settings{{wanted, "NothingAsserted::shouldVerify"}} << 0;
        QTest::newRow("two of them")
            << Settings{{wanted, "NothingAsserted::shouldVerify NothingAsserted::shouldSayNothing"}} << 1;
        QTest::newRow("a class that is not there") << Settings{{wanted, "NoSuchTest"}} << 101;
        QTest::newRow("no decimal comma")
            << Settings{{"ROOM_EXPECT_DECIMAL_COMMA", "1"}, {"LC_ALL", "C"}} << 101;
    }
    void shouldCountTheFunctionsThatFail()
    {
        // GIVEN
        QFETCH(Settings, settings);
        QFETCH(int, code);
        // WHEN, THEN
        QCOMPARE(exitCode(settings), code);
    }

    void shouldNotJudgeARunWhoseLogGoesElsewhere()
    {
        // GIVEN
        const QTemporaryDir folder;
        const QString log = folder.filePath(QStringLiteral("log.txt"));
        // WHEN, THEN
        QCOMPARE(exitCode({}, {QStringLiteral("-o"), log + QStringLiteral(",txt")}), 0);
        QVERIFY(QFile::exists(log));
    }
};

ROOM_TEST_CLASS(TestRegistryTest)
#include "TestRegistryTest.moc"
