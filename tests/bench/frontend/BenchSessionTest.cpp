#include "BenchSession.h"

#include "BenchOptions.h"
#include "BuiltFiles.h"
#include "ControllerLink.h"
#include "ControllerProcess.h"
#include "TestRegistry.h"

#include <QTcpServer>
#include <QTemporaryFile>
#include <QtTest>

#include <array>

namespace
{

QString scenario(const char *name)
{
    return BuiltFiles::scenario(name);
}

int cameraCount(BenchSession &session)
{
    int count = -1;
    session.channel().getParameterInt(&count, "camera number_of_cameras");
    return count;
}

} // namespace

class BenchSessionTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldHaveAControllerOfItsOwn()
    {
        QString error;
        const auto session = BenchSession::open(BenchOptions(), &error);
        QVERIFY2(session != nullptr, qPrintable(error));
        QCOMPARE(cameraCount(*session), 4);
    }

    void shouldHaveAsManyCamerasAsAskedFor_data()
    {
        QTest::addColumn<QByteArray>("room");
        QTest::addColumn<int>("count");
        QTest::newRow("none") << QByteArray("{}") << 0;
        QTest::newRow("one") << QByteArray("{}") << 1;
        QTest::newRow("more than the standard ones") << QByteArray("{}") << 6;
        QTest::newRow("in a room without cameras") << QByteArray(R"({"cameras": []})") << 2;
        QTest::newRow("none in a room without cameras") << QByteArray(R"({"cameras": []})") << 0;
    }

    void shouldHaveAsManyCamerasAsAskedFor()
    {
        QFETCH(QByteArray, room);
        QFETCH(int, count);
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(room);
        file.close();
        BenchOptions options;
        options.scenario = file.fileName();
        options.cameras = count;
        QString error;
        const auto session = BenchSession::open(options, &error);
        QVERIFY2(session != nullptr, qPrintable(error));
        QCOMPARE(cameraCount(*session), count);
    }

    void shouldPutTheControllerIntoTheWantedState()
    {
        BenchOptions options;
        options.startLines << QStringLiteral("velmar2 set tracking extra_translation 1 2 3")
                           << QStringLiteral("sim locked yes");
        QString error;
        const auto session = BenchSession::open(options, &error);
        QVERIFY(session != nullptr);
        std::array<double, 3> translation = {};
        QCOMPARE(session->channel().getParameterDoubles(translation.data(), 3, "tracking extra_translation"),
                 0);
        QCOMPARE(translation, (std::array<double, 3>{1, 2, 3}));
        std::array<char, 256> changeable = {};
        session->channel().getParameter(changeable.data(), "config is_changeable");
        QCOMPARE(QLatin1String(changeable.data()), QLatin1String("no"));
    }

    void shouldSayWhichLineTheControllerRefuses()
    {
        BenchOptions options;
        options.startLines << QStringLiteral("velmar2 set tracking extra_scaling -1");
        QString error;
        QVERIFY(BenchSession::open(options, &error) == nullptr);
        QVERIFY2(error.contains(QStringLiteral("extra_scaling -1")), qPrintable(error));
    }

    void shouldStartFromAScenarioWithItsFaults()
    {
        BenchOptions options;
        options.scenario = scenario("failing-controller.json");
        QString error;
        const auto session = BenchSession::open(options, &error);
        QVERIFY2(session != nullptr, qPrintable(error));
        std::array<char, 256> answer = {};
        QCOMPARE(session->channel().sendCommand(answer.data(), "velmar2 tracking start"), 0);
        QVERIFY(session->channel().sendCommand(answer.data(), "velmar2 tracking start") != 0);
    }

    void shouldLetTheCallOfTheHelpsExampleFail()
    {
        const QString help = BenchOptions::help().simplified();
        const QString example =
            help.section(QStringLiteral("such as \"fail "), 1).section(QLatin1Char('"'), 0, 0);
        BenchOptions options;
        options.startLines << QStringLiteral("sim fault fail ") + example;
        QString error;
        const auto session = BenchSession::open(options, &error);
        QVERIFY2(session != nullptr, qPrintable(error));
        std::array<char, 256> value = {};
        QCOMPARE(session->channel().getParameter(value.data(), "status active"), 0);
        QCOMPARE(session->channel().getParameter(value.data(), "status active"), 0);
        QVERIFY(session->channel().getParameter(value.data(), "status active") != 0);
    }

    void shouldNameAScenarioThatCannotBeRead()
    {
        BenchOptions options;
        options.scenario = scenario("missing.json");
        QString error;
        QVERIFY(BenchSession::open(options, &error) == nullptr);
        QVERIFY2(error.contains(QStringLiteral("missing.json")), qPrintable(error));
    }

    void shouldTalkToAControllerInAnotherProcess()
    {
        const ControllerProcess controller({QStringLiteral("--scenario"), scenario("two-tools.json")});
        BenchOptions options;
        options.controller = controller.address();
        options.startLines << QStringLiteral("sim version 1 17 -1");
        QString error;
        const auto session = BenchSession::open(options, &error);
        QVERIFY2(session != nullptr, qPrintable(error));
        int tools = 0;
        QCOMPARE(session->channel().getParameterInt(&tools, "measurementtool number_of_tools"), 0);
        QCOMPARE(tools, 2);
        QCOMPARE(session->channel().link().ask("sim get version").text,
                 std::string("sim get version 1 17 -1"));
    }

    void shouldSayThatAControllerCannotBeReached()
    {
        QTcpServer server; // takes a free port, and gives it back
        QVERIFY(server.listen(QHostAddress::LocalHost));
        BenchOptions options;
        options.controller = QStringLiteral("127.0.0.1:%1").arg(server.serverPort());
        server.close();
        QString error;
        QVERIFY(BenchSession::open(options, &error) == nullptr);
        QVERIFY2(error.contains(options.controller), qPrintable(error));
    }

    void shouldRefuseAnAddressThatIsNone()
    {
        BenchOptions options;
        options.controller = QStringLiteral("nowhere");
        QString error;
        QVERIFY(BenchSession::open(options, &error) == nullptr);
        QVERIFY2(error.contains(QStringLiteral("HOST:PORT")), qPrintable(error));
    }
};

ROOM_TEST_CLASS(BenchSessionTest)

#include "BenchSessionTest.moc"
