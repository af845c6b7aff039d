#include "TrackingAccess.h"

#include "DoomedAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

using Operation = std::function<void(const TrackingAccess &)>;

const BackendVersions current = interfaceVersion(1, 23);

RoomTrafoData turnedRoom()
{
    RoomTrafoData data;
    data.rotation = {0.123456789, -0.5, 0.25, -0.0, 1.0, 2.0, 3.0, 4.0, 5.0};
    data.translation = {-10.0004, 0.0005, -0.0};
    data.scaling = 1.234567;
    return data;
}

} // namespace

Q_DECLARE_METATYPE(Operation)
Q_DECLARE_METATYPE(CoordinateType)

/// Every text is spelled here once more by hand: a slip in one place meets a contradiction in the other.
class TrackingAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayTheRequiredWords_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("expected");

        const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
            QTest::newRow(name) << operation << expected;
        };
        row("tracking available", [](const TrackingAccess &c) { (void)c.trackingAvailable(); },
            {"read tracking available"});
        row("start tracking", [](const TrackingAccess &c) { c.startTracking(); },
            {"command velmar2 tracking start"});
        row("stop tracking at rest", [](const TrackingAccess &c) { c.stopTrackingIfMeasuring(); },
            {"read status active"});
        row("stop tracking while measuring",
            [](const TrackingAccess &c) {
                c.startTracking();
                c.stopTrackingIfMeasuring();
            },
            {"command velmar2 tracking start", "read status active", "command velmar2 tracking stop"});
        row("configuration", [](const TrackingAccess &c) { (void)c.configurationChangeable(); },
            {"read config is_changeable"});
        row("cameras", [](const TrackingAccess &c) { (void)c.numberOfCameras(); },
            {"read camera number_of_cameras"});
        row("has room", [](const TrackingAccess &c) { (void)c.cameraHasRoom(7); },
            {"read tracking has_room c07"});
        row("room", [](const TrackingAccess &c) { (void)c.roomOfCamera(12); }, {"read tracking room c12"});
        row("position", [](const TrackingAccess &c) { (void)c.positionOfCamera(3); },
            {"read tracking room c03"});
        row("room adjustment", [](const TrackingAccess &c) { (void)c.roomAdjustment(); },
            {"read tracking extra_rotation", "read tracking extra_translation",
             "read tracking extra_scaling"});
        row("write room adjustment", [](const TrackingAccess &c) { c.writeRoomAdjustment(turnedRoom()); },
            {"write tracking extra_rotation 0.12345679 -0.50000000 0.25000000 0.00000000 1.00000000 "
             "2.00000000 "
             "3.00000000 4.00000000 5.00000000",
             "write tracking extra_translation -10.000 0.001 0.000", "write tracking extra_scaling 1.23457"});
        row("subscribe",
            [](const TrackingAccess &c) {
                for (std::size_t kind = 0; kind < TrackingAccess::recordKindCount; ++kind)
                    c.subscribe(kind, nullptr);
            },
            {"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2", "subscribe 6df"});
        row("unsubscribe",
            [](const TrackingAccess &c) {
                for (std::size_t kind = 0; kind < TrackingAccess::recordKindCount; ++kind)
                    c.unsubscribe(kind, nullptr);
            },
            {"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt", "unsubscribe 6df2",
             "unsubscribe 6df"});
    }

    void shouldSayTheRequiredWords()
    {
        QFETCH(Operation, operation);
        QFETCH(QStringList, expected);
        // GIVEN
        RecordingHost host;
        const TrackingAccess controller(&host, &current);
        // WHEN
        operation(controller);
        // THEN
        QCOMPARE(host.calls(), expected);
    }

    void shouldReportAFailureInTheRequiredWords_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QStringList>("expected");

        const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
            QTest::newRow(name) << operation << expected;
        };
        row("tracking available", [](const TrackingAccess &c) { (void)c.trackingAvailable(); }, {});
        row("configuration", [](const TrackingAccess &c) { (void)c.configurationChangeable(); }, {});
        row("has room", [](const TrackingAccess &c) { (void)c.cameraHasRoom(1); }, {});
        row("room", [](const TrackingAccess &c) { (void)c.roomOfCamera(1); }, {});
        row("room adjustment", [](const TrackingAccess &c) { (void)c.roomAdjustment(); }, {});
        row("start tracking", [](const TrackingAccess &c) { c.startTracking(); },
            {"Error: Unable to start tracking"});
        row("status", [](const TrackingAccess &c) { c.stopTrackingIfMeasuring(); },
            {"Error: Unable to check tracking status"});
        row("cameras", [](const TrackingAccess &c) { (void)c.numberOfCameras(); },
            {"Error: Unable to get number of cameras"});
        row("position", [](const TrackingAccess &c) { (void)c.positionOfCamera(1); },
            {"Error: Unable to get room cal of camera"});
        row("write room adjustment", [](const TrackingAccess &c) { c.writeRoomAdjustment(RoomTrafoData()); },
            {"Error: Unable to set room adjustment rotation",
             "Error: Unable to set room adjustment translation",
             "Error: Unable to set room adjustment scaling"});
        row("coordinate type", [](const TrackingAccess &c) { (void)c.coordinateType(); },
            {"Error: Cannot require room calibration coordinate type."});
    }

    void shouldReportAFailureInTheRequiredWords()
    {
        QFETCH(Operation, operation);
        QFETCH(QStringList, expected);
        // GIVEN
        RecordingHost host;
        host.failFrom(1);
        const TrackingAccess controller(&host, &current);
        // WHEN
        operation(controller);
        // THEN
        QCOMPARE(host.reports(), expected);
    }

    void shouldPassFormatsAndValuesUnformatted()
    {
        RecordingHost host;
        const TrackingAccess controller(&host, &current);

        controller.writeRoomAdjustment(RoomTrafoData());
        (void)controller.roomOfCamera(1);

        QCOMPARE(host.formats(),
                 QStringList({"tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f",
                              "tracking extra_translation %.3f %.3f %.3f", "tracking extra_scaling %.5f",
                              "tracking room c%2.2d"}));
    }

    void shouldNeverPrintANegativeZero()
    {
        RecordingHost host;
        RoomTrafoData data;
        data.rotation = {1.0, -0.0, -1.2246e-16, -4.9e-9, 1.0, -6e-9, -0.5, 1e-16, 1.0};
        data.translation = {-0.0, -0.0004, -0.0005};

        TrackingAccess(&host, &current).writeRoomAdjustment(data);

        QCOMPARE(host.calls(),
                 QStringList({"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 "
                              "0.00000000 1.00000000 -0.00000001 -0.50000000 0.00000000 1.00000000",
                              "write tracking extra_translation 0.000 0.000 -0.001",
                              "write tracking extra_scaling 1.00000"}));
    }

    void shouldTakeAnyNonZeroResultAsFailure_data()
    {
        QTest::addColumn<int>("code");
        QTest::newRow("1") << 1;
        QTest::newRow("-1") << -1;
        QTest::newRow("256") << 256;
        QTest::newRow("only the highest bit") << std::numeric_limits<int>::min();
    }

    void shouldTakeAnyNonZeroResultAsFailure()
    {
        QFETCH(int, code);
        RecordingHost host;
        host.setFailureCode(code);
        host.failFrom(1);
        const TrackingAccess controller(&host, &current);

        QCOMPARE(controller.trackingAvailable(), Reply::Failed);
        QVERIFY(!controller.numberOfCameras());
        QVERIFY(!controller.cameraHasRoom(1));
        QCOMPARE(controller.roomOfCamera(1), CameraRoom::Failed);
    }

    void shouldFailEverywhereWithoutAChannel()
    {
        const TrackingAccess controller(nullptr, &current);

        QCOMPARE(controller.trackingAvailable(), Reply::Failed);
        QCOMPARE(controller.roomOfCamera(1), CameraRoom::Failed);
        QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
        QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
        QVERIFY(!controller.numberOfCameras());
        QCOMPARE(controller.configurationChangeable(), Reply::Failed);
        QVERIFY(!controller.cameraHasRoom(1));
        controller.startTracking();
        controller.stopTrackingIfMeasuring();
        controller.writeRoomAdjustment(RoomTrafoData());
        controller.subscribe(0, nullptr);
        controller.unsubscribe(0, nullptr);
    }

    void shouldNotAskOldControllersForTheExtraTransformation()
    {
        RecordingHost host;
        const BackendVersions old = interfaceVersion(0, 15, 9);
        const TrackingAccess controller(&host, &old);

        QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
        controller.writeRoomAdjustment(turnedRoom());

        QCOMPARE(host.calls(), QStringList());
    }

    void shouldCompareWholeAnswersOnly_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("expected");
        QTest::newRow("no") << QByteArray("no") << int(Reply::No);
        QTest::newRow("yes") << QByteArray("yes") << int(Reply::Yes);
        QTest::newRow("no and a blank") << QByteArray("no ") << int(Reply::Other);
        QTest::newRow("NO") << QByteArray("NO") << int(Reply::Other);
        QTest::newRow("nothing") << QByteArray("") << int(Reply::Other);
        QTest::newRow("none") << QByteArray("none") << int(Reply::Other);
    }

    void shouldCompareWholeAnswersOnly()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, expected);
        RecordingHost host;
        host.setAnswer("tracking available", answer);

        QCOMPARE(int(TrackingAccess(&host, &current).trackingAvailable()), expected);
    }

    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<bool>("taken");
        QTest::newRow("nine numbers") << QByteArray("0.5 0 0 0 1 0 0 0 1") << true;
        QTest::newRow("further numbers are left alone") << QByteArray("0.5 0 0 0 1 0 0 0 1 7") << true;
        QTest::newRow("eight numbers") << QByteArray("0.5 0 0 0 1 0 0 0") << false;
        QTest::newRow("two blanks") << QByteArray("0.5  0 0 0 1 0 0 0 1") << false;
        QTest::newRow("a word") << QByteArray("0.5 0 0 0 one 0 0 0 1") << false;
        QTest::newRow("a comma") << QByteArray("0,5 0 0 0 1 0 0 0 1") << false;
        QTest::newRow("nothing") << QByteArray("") << false;
    }

    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert()
    {
        QFETCH(QByteArray, answer);
        QFETCH(bool, taken);
        RecordingHost host;
        host.setAnswer("tracking extra_rotation", answer);
        host.setAnswer("tracking extra_translation", "1.5 2.5 -3.5");

        const RoomTrafoData data = TrackingAccess(&host, &current).roomAdjustment();

        QCOMPARE(data.rotation[0], taken ? 0.5 : 1.0);
        QCOMPARE(data.translation, (std::array<double, 3>{1.5, 2.5, -3.5}));
    }

    void shouldTakeMissingCameraCoordinatesAsZero_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("z");
        QTest::newRow("all") << QByteArray("1.5 2.5 3.5 1 0 0 0 1 0 0 0 1") << 1.5 << 2.5 << 3.5;
        QTest::newRow("two") << QByteArray("1.5 2.5") << 1.5 << 2.5 << 0.0;
        QTest::newRow("none") << QByteArray("none") << 0.0 << 0.0 << 0.0;
        QTest::newRow("nothing") << QByteArray("") << 0.0 << 0.0 << 0.0;
    }

    void shouldTakeMissingCameraCoordinatesAsZero()
    {
        QFETCH(QByteArray, answer);
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(double, z);
        RecordingHost host;
        host.setAnswer("tracking room c01", answer);

        QCOMPARE(TrackingAccess(&host, &current).positionOfCamera(1), (std::array<double, 3>{x, y, z}));
    }

    void shouldSurviveAnswersOfAThousandCharacters()
    {
        RecordingHost host;
        const QByteArray endless(1000, 'n');
        for (const char *text : {"tracking available", "tracking extra_rotation", "roomcal coordinate_type",
                                 "tracking room c01"})
            host.setAnswer(text, endless);
        const TrackingAccess controller(&host, &current);

        QCOMPARE(controller.trackingAvailable(), Reply::Other);
        QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
        QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
        QCOMPARE(controller.roomOfCamera(1), CameraRoom::Present);
    }

    void shouldBoundTheNumberOfCameras()
    {
        RecordingHost host;
        const TrackingAccess controller(&host, &current);

        host.setAnswer("camera number_of_cameras", "2000000000");
        QCOMPARE(controller.numberOfCameras().value_or(-1), 1000);
        host.setAnswer("camera number_of_cameras", "-3");
        QCOMPARE(controller.numberOfCameras().value_or(-1), 0);
    }

    void shouldNeverUseTheValueOfAFailedRead()
    {
        RecordingHost host;
        host.failFrom(1);
        const TrackingAccess controller(&host, &current);

        QVERIFY(!controller.numberOfCameras());
        QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
        QCOMPARE(controller.positionOfCamera(1), (std::array<double, 3>{0.0, 0.0, 0.0}));
    }

    void shouldTellWhetherACameraHasARoom_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("expected");
        QTest::newRow("position and rotation")
            << QByteArray("1.5 2.5 3.5 1 0 0 0 1 0 0 0 1") << int(CameraRoom::Present);
        QTest::newRow("none") << QByteArray("none") << int(CameraRoom::None);
        QTest::newRow("more than none") << QByteArray("none 1") << int(CameraRoom::Present);
        QTest::newRow("nothing") << QByteArray("") << int(CameraRoom::Present);
    }

    void shouldTellWhetherACameraHasARoom()
    {
        QFETCH(QByteArray, answer);
        RecordingHost host;
        host.setAnswer("tracking room c01", answer);

        QTEST(int(TrackingAccess(&host, &current).roomOfCamera(1)), "expected");
    }

    void shouldMapEveryCoordinateType_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<CoordinateType>("type");
        QTest::newRow("normal") << QByteArray("normal") << CoordinateType::Normal;
        QTest::newRow("powerwall") << QByteArray("powerwall") << CoordinateType::Powerwall;
        QTest::newRow("powerwall_standing")
            << QByteArray("powerwall_standing") << CoordinateType::PowerwallStanding;
        QTest::newRow("mid_camera") << QByteArray("mid_camera") << CoordinateType::MidCamera;
        QTest::newRow("none") << QByteArray("none") << CoordinateType::None;
        QTest::newRow("first_camera") << QByteArray("first_camera") << CoordinateType::Unknown;
        QTest::newRow("nothing") << QByteArray("") << CoordinateType::Unknown;
    }

    void shouldMapEveryCoordinateType()
    {
        QFETCH(QByteArray, answer);
        QFETCH(CoordinateType, type);
        RecordingHost host;
        host.setAnswer("roomcal coordinate_type", answer);
        const BackendVersions old = interfaceVersion(1, 8, 0);

        QCOMPARE(TrackingAccess(&host, &old).coordinateType(), type);
        QCOMPARE(host.calls(), QStringList({"read roomcal coordinate_type"}));
    }

    void shouldAskForTheCurrentTypeWhenTheLastIsNone()
    {
        RecordingHost host;
        host.setAnswer("roomcal last_coordinate_type", "none");
        host.setAnswer("roomcal coordinate_type", "powerwall");

        QCOMPARE(TrackingAccess(&host, &current).coordinateType(), CoordinateType::Powerwall);
        QCOMPARE(host.calls(),
                 QStringList({"read roomcal last_coordinate_type", "read roomcal coordinate_type"}));
    }

    void shouldNotAskFurtherWhenTheLastTypeCannotBeRead()
    {
        RecordingHost host;
        host.failCall(1);

        QCOMPARE(TrackingAccess(&host, &current).coordinateType(), CoordinateType::Unknown);
        QCOMPARE(host.calls(),
                 QStringList({"read roomcal last_coordinate_type",
                              "report Error: Cannot require room calibration coordinate type."}));
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("adjustment") << Operation([](const TrackingAccess &c) { (void)c.roomAdjustment(); });
        QTest::newRow("write") << Operation(
            [](const TrackingAccess &c) { c.writeRoomAdjustment(turnedRoom()); });
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt()
    {
        QFETCH(Operation, operation);
        const QStringList calls = callsOfSafe<TrackingAccess>(current, operation);

        QVERIFY(calls.size() > 1);
        QCOMPARE(callsOfDoomed<TrackingAccess>(current, operation), calls);
    }
};

ROOM_TEST_CLASS(TrackingAccessTest)
#include "TrackingAccessTest.moc"
