#include "AngleToolCalls.h"

#include "ControllerChannel.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

using Operation = std::function<void(const ControllerChannel &)>;

/// A scripted host that knows the calibration with the angle tool, and the channel to it.
struct Line {
    explicit Line(int minor = 23)
        : versions(interfaceVersion(1, minor))
    {
        host.setAnswer("roomcal number_of_available_coordinate_types", "3");
        host.setAnswer("roomcal available_coordinate_type t01", "normal");
        host.setAnswer("roomcal available_coordinate_type t02", "mid_camera");
        host.setAnswer("roomcal available_coordinate_type t03", "powerwall");
        host.setAnswer("roomcal available_coordinate_type_desc normal", "\"Normal\"");
        host.setAnswer("roomcal angle", "278 83.5 163");
        host.setAnswer("roomcal angle_height", "55");
        host.setAnswer("roomcal duration", "12.5");
    }

    RecordingHost host;
    BackendVersions versions;
    ControllerChannel channel{&host, &versions};
};

} // namespace

Q_DECLARE_METATYPE(Operation)

/// Every text is spelled here once more by hand: a slip in one place meets a contradiction in the other.
class AngleToolCallsTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeginWithoutSizes()
    {
        QCOMPARE(AngleToolSetup().height, 0.0);
        QCOMPARE(AngleToolSetup().distances, (std::array<double, 3>()));
    }

    void shouldOfferTheTypesThatSuitTheAngleTool()
    {
        // GIVEN
        Line line;
        line.host.failText("roomcal available_coordinate_type_desc powerwall");
        // WHEN
        const auto types = AngleToolCalls::coordinateTypes(line.channel);
        // THEN
        QCOMPARE(int(types.size()), 2);
        QCOMPARE(types[0].identifier, QByteArray("normal"));
        QCOMPARE(types[0].description, QByteArray("\"Normal\""));
        QCOMPARE(types[1].description, QByteArray("powerwall"));
        QCOMPARE(line.host.reports(), QStringList("Error: Unable to get coordinate type description"));
    }

    void shouldAskForAThousandTypesAtMost()
    {
        // GIVEN
        Line line;
        line.host.setAnswer("roomcal number_of_available_coordinate_types", "1003");
        for (int type = 1; type <= 1003; ++type)
            line.host.setAnswer(QString::asprintf("roomcal available_coordinate_type t%02d", type),
                                "mid_camera");
        // WHEN
        const auto types = AngleToolCalls::coordinateTypes(line.channel);
        // THEN
        QVERIFY(types.empty());
        QCOMPARE(line.host.calls().size(), 1 + 1000);
        QCOMPARE(line.host.calls().constLast(), QString("read roomcal available_coordinate_type t1000"));
    }

    void shouldReadWhatTheControllerHolds()
    {
        // GIVEN
        const Line line;
        // WHEN, THEN
        QCOMPARE(AngleToolCalls::distances(line.channel).value(),
                 (std::array<double, 3>{278.0, 83.5, 163.0}));
        QCOMPARE(AngleToolCalls::height(line.channel).value(), 55.0);
        QCOMPARE(AngleToolCalls::roomDuration(line.channel), 12.5);
        QCOMPARE(AngleToolCalls::coordinateType(line.channel), QByteArray("normal"));
    }

    void shouldReportEachFailureInItsWords_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("report");
        const auto row = [](const char *name, const Operation &operation, const char *call,
                            const char *report) {
            QTest::newRow(name) << operation << QString::fromLatin1(call) << QString::fromLatin1(report);
        };
        using Channel = const ControllerChannel &;
        row(
            "types", [](Channel c) { (void)AngleToolCalls::coordinateTypes(c); },
            "read roomcal number_of_available_coordinate_types",
            "Error: Unable to get number of coordinate system types");
        row(
            "type", [](Channel c) { QCOMPARE(AngleToolCalls::coordinateType(c), QByteArray("normal")); },
            "read roomcal coordinate_type", "Error: Unable to get coordinate type");
        row(
            "distances", [](Channel c) { QVERIFY(!AngleToolCalls::distances(c)); }, "read roomcal angle",
            "Error: Unable to get values of last used angle tool");
        row(
            "height", [](Channel c) { QVERIFY(!AngleToolCalls::height(c)); }, "read roomcal angle_height",
            "Error: Unable to angle tool height");
        row(
            "duration", [](Channel c) { QCOMPARE(AngleToolCalls::roomDuration(c), 30.0); },
            "read roomcal duration", "Error: Cannot get information room calibration duration");
        row(
            "set distances",
            [](Channel c) {
                AngleToolCalls::setDistances(c, {1.0, 2.0, 3.5});
            },
            "write roomcal angle 1.000 2.000 3.500", "Error: Unable to set roomcalibration angle tool");
        row(
            "set height", [](Channel c) { AngleToolCalls::setHeight(c, 55.0); },
            "write roomcal angle_height 55.000", "Error: Unable to set angle tool height");
        row(
            "set type", [](Channel c) { AngleToolCalls::setCoordinateType(c, "powerwall"); },
            "write roomcal coordinate_type powerwall",
            "Error: Cannot set room calibration coordinate system");
        row(
            "shorten", [](Channel c) { AngleToolCalls::shortenRoomDuration(c); },
            "write roomcal duration 5.0", "Error: Cannot set room calibration duration");
        row(
            "restore", [](Channel c) { AngleToolCalls::restoreRoomDuration(c, 12.34); },
            "write roomcal duration 12.3", "Error: Cannot set room calibration duration");
    }
    void shouldReportEachFailureInItsWords()
    {
        // GIVEN
        QFETCH(Operation, operation);
        QFETCH(QString, call);
        QFETCH(QString, report);
        Line line;
        line.host.failFrom(1);
        // WHEN
        operation(line.channel);
        // THEN
        QCOMPARE(line.host.callsOf({"read", "write"}), QStringList(call));
        QCOMPARE(line.host.reports(), QStringList(report));
    }

    void shouldNotAskOldControllersForWhatTheyDoNotKnow()
    {
        // GIVEN
        RecordingHost host;
        const BackendVersions old = interfaceVersion(0, 1);
        const ControllerChannel channel(&host, &old);
        // WHEN, THEN
        QVERIFY(!AngleToolCalls::height(channel));
        QCOMPARE(AngleToolCalls::roomDuration(channel), 30.0);
        QCOMPARE(host.calls(), QStringList());
    }

    void shouldRestartTrackingOnlyWhereNothingRuns_data()
    {
        QTest::addColumn<QByteArray>("activity");
        QTest::addColumn<QByteArray>("available");
        QTest::addColumn<bool>("starts");
        QTest::newRow("nothing runs") << QByteArray("none") << QByteArray("yes") << true;
        QTest::newRow("error") << QByteArray("err") << QByteArray("yes") << true;
        QTest::newRow("measuring") << QByteArray("mea") << QByteArray("yes") << false;
        QTest::newRow("calibrating") << QByteArray("cal") << QByteArray("yes") << false;
        QTest::newRow("not available") << QByteArray("none") << QByteArray("no") << false;
    }
    void shouldRestartTrackingOnlyWhereNothingRuns()
    {
        // GIVEN
        QFETCH(QByteArray, activity);
        QFETCH(QByteArray, available);
        QFETCH(bool, starts);
        Line line;
        line.host.setAnswer("status active", activity);
        line.host.setAnswer("tracking available", available);
        // WHEN
        AngleToolCalls::restartTracking(line.channel);
        // THEN
        QCOMPARE(line.host.calls().contains("command velmar2 tracking start"), starts);
        QCOMPARE(line.host.reports(), QStringList());
    }
};

ROOM_TEST_CLASS(AngleToolCallsTest)
#include "AngleToolCallsTest.moc"
