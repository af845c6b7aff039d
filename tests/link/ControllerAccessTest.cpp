#include "ControllerAccess.h"
#include "BackendVersions.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>

namespace
{

using Operation = std::function<void(const ControllerAccess &)>;

BackendVersions versions(int major, int minor, int patch)
{
    BackendVersions result;
    result.interfaceMajor = major;
    result.interfaceMinor = minor;
    result.interfacePatch = patch;
    return result;
}

const BackendVersions current = versions(1, 23, -1);

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

/// Every text is spelled here once more by hand: a slip in one place meets a contradiction in the other.
class ControllerAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSayTheRequiredWords_data();
    void shouldSayTheRequiredWords();
    void shouldReportAFailureInTheRequiredWords_data();
    void shouldReportAFailureInTheRequiredWords();
    void shouldPassFormatsAndValuesUnformatted();
    void shouldNeverPrintANegativeZero();
    void shouldCompareWholeAnswersOnly_data();
    void shouldCompareWholeAnswersOnly();
    void shouldTakeAnyNonZeroResultAsFailure_data();
    void shouldTakeAnyNonZeroResultAsFailure();
    void shouldFailEverywhereWithoutAChannel();
    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert_data();
    void shouldReadTheRotationOnlyWhenAllNineNumbersConvert();
    void shouldTakeMissingCameraCoordinatesAsZero_data();
    void shouldTakeMissingCameraCoordinatesAsZero();
    void shouldSurviveAnswersOfAThousandCharacters();
    void shouldNotAskOldControllersForTheExtraTransformation();
    void shouldNeverUseTheValueOfAFailedRead();
    void shouldStopReadingTheExtraTransformationAtTheFirstFailure_data();
    void shouldStopReadingTheExtraTransformationAtTheFirstFailure();
    void shouldTellWhatTheControllerIsDoing_data();
    void shouldTellWhatTheControllerIsDoing();
    void shouldTellWhetherACameraHasARoom_data();
    void shouldTellWhetherACameraHasARoom();
    void shouldMapEveryCoordinateType_data();
    void shouldMapEveryCoordinateType();
    void shouldAskForTheCurrentTypeWhenTheLastIsNone();
    void shouldNotAskFurtherWhenTheLastTypeCannotBeRead();
    void shouldFollowTheVersionRule_data();
    void shouldFollowTheVersionRule();
    void shouldKnowTheThresholdOfEveryFeature_data();
    void shouldKnowTheThresholdOfEveryFeature();
};

void ControllerAccessTest::shouldSayTheRequiredWords_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
        QTest::newRow(name) << operation << expected;
    };
    row("tracking available", [](const ControllerAccess &c) { (void)c.trackingAvailable(); },
        {"read tracking available"});
    row("activity", [](const ControllerAccess &c) { (void)c.activity(); }, {"read status active"});
    row("start tracking", [](const ControllerAccess &c) { (void)c.startTracking(); },
        {"command velmar2 tracking start"});
    row("stop tracking at rest", [](const ControllerAccess &c) { c.stopTrackingIfMeasuring(); },
        {"read status active"});
    row("stop tracking while measuring",
        [](const ControllerAccess &c) {
            (void)c.startTracking();
            c.stopTrackingIfMeasuring();
        },
        {"command velmar2 tracking start", "read status active", "command velmar2 tracking stop"});
    row("bare start", [](const ControllerAccess &c) { c.sendTrackingStart(); },
        {"command velmar2 tracking start"});
    row("bare stop", [](const ControllerAccess &c) { c.sendTrackingStop(); },
        {"command velmar2 tracking stop"});
    row("configuration", [](const ControllerAccess &c) { (void)c.configurationChangeable(); },
        {"read config is_changeable"});
    row("cameras", [](const ControllerAccess &c) { (void)c.numberOfCameras(); },
        {"read camera number_of_cameras"});
    row("has room", [](const ControllerAccess &c) { (void)c.cameraHasRoom(7); },
        {"read tracking has_room c07"});
    row("room", [](const ControllerAccess &c) { (void)c.roomOfCamera(12); }, {"read tracking room c12"});
    row("position", [](const ControllerAccess &c) { (void)c.positionOfCamera(3); },
        {"read tracking room c03"});
    row("room adjustment", [](const ControllerAccess &c) { (void)c.roomAdjustment(); },
        {"read tracking extra_rotation", "read tracking extra_translation", "read tracking extra_scaling"});
    row("write room adjustment", [](const ControllerAccess &c) { c.writeRoomAdjustment(turnedRoom()); },
        {"write tracking extra_rotation 0.12345679 -0.50000000 0.25000000 0.00000000 1.00000000 2.00000000 "
         "3.00000000 4.00000000 5.00000000",
         "write tracking extra_translation -10.000 0.001 0.000", "write tracking extra_scaling 1.23457"});
    row("extra transformation", [](const ControllerAccess &c) { (void)c.extraTransformation(); },
        {"read tracking extra_translation", "read tracking extra_rotation", "read tracking extra_scaling"});
    row("neutral extra transformation", [](const ControllerAccess &c) { c.setNeutralExtraTransformation(); },
        {"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 "
         "0.00000000 0.00000000 1.00000000",
         "write tracking extra_translation 0.000 0.000 0.000", "write tracking extra_scaling 1.00000"});
    row("restore extra transformation",
        [](const ControllerAccess &c) { c.restoreExtraTransformation(RoomTrafoData()); },
        {"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 "
         "0.00000000 0.00000000 1.00000000",
         "write tracking extra_translation 0.000 0.000 0.000", "write tracking extra_scaling 1.00000"});
    row("reference", [](const ControllerAccess &c) { (void)c.referenceTarget(); },
        {"read tracking reference"});
    row("unset reference", [](const ControllerAccess &c) { (void)c.unsetReferenceTarget(); },
        {"write tracking reference none"});
    row("restore reference", [](const ControllerAccess &c) { (void)c.restoreReferenceTarget("body b07"); },
        {"write tracking reference body b07"});
    row("tool check", [](const ControllerAccess &c) { c.checkMeasurementTool(); },
        {"read measurementtool available"});
    row("tool available", [](const ControllerAccess &c) { (void)c.measurementToolAvailable(); },
        {"read measurementtool available"});
    row("tools", [](const ControllerAccess &c) { (void)c.numberOfMeasurementTools(); },
        {"read measurementtool number_of_tools"});
    row("tip", [](const ControllerAccess &c) { (void)c.tipIsCalibrated(2); },
        {"read measurementtool tip_calibrated b02"});
    row("duration", [](const ControllerAccess &c) { (void)c.measurementDuration(2); },
        {"read measurementtool measurement_duration b02"});
    row("tolerance", [](const ControllerAccess &c) { (void)c.tipTolerance(2); },
        {"read measurementtool measurement_tip_tolerance b02"});
    row("start measurement", [](const ControllerAccess &c) { c.startTipMeasurement(10); },
        {"command velmar2 measurementtool start_measurement b10"});
    row("subscribe", [](const ControllerAccess &c) { c.subscribe(nullptr); },
        {"subscribe ts", "subscribe 6dmt2", "subscribe 6dmt", "subscribe 6df2", "subscribe 6df"});
    row("unsubscribe", [](const ControllerAccess &c) { c.unsubscribe(nullptr); },
        {"unsubscribe ts", "unsubscribe 6dmt2", "unsubscribe 6dmt", "unsubscribe 6df2", "unsubscribe 6df"});
}

void ControllerAccessTest::shouldSayTheRequiredWords()
{
    QFETCH(Operation, operation);
    QFETCH(QStringList, expected);
    // GIVEN
    RecordingHost host;
    const ControllerAccess controller(&host, &current);
    // WHEN
    operation(controller);
    // THEN
    QCOMPARE(host.calls(), expected);
}

void ControllerAccessTest::shouldReportAFailureInTheRequiredWords_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *name, const Operation &operation, const QStringList &expected) {
        QTest::newRow(name) << operation << expected;
    };
    row("tracking available", [](const ControllerAccess &c) { (void)c.trackingAvailable(); }, {});
    row("activity", [](const ControllerAccess &c) { (void)c.activity(); }, {});
    row("configuration", [](const ControllerAccess &c) { (void)c.configurationChangeable(); }, {});
    row("has room", [](const ControllerAccess &c) { (void)c.cameraHasRoom(1); }, {});
    row("room", [](const ControllerAccess &c) { (void)c.roomOfCamera(1); }, {});
    row("room adjustment", [](const ControllerAccess &c) { (void)c.roomAdjustment(); }, {});
    row("scaling", [](const ControllerAccess &c) { (void)c.extraScaling(); }, {});
    row("bare start", [](const ControllerAccess &c) { c.sendTrackingStart(); }, {});
    row("bare stop", [](const ControllerAccess &c) { c.sendTrackingStop(); }, {});
    row("tool available", [](const ControllerAccess &c) { (void)c.measurementToolAvailable(); }, {});
    row("quiet tip", [](const ControllerAccess &c) { (void)c.tipIsCalibratedQuietly(1); }, {});
    row("duration", [](const ControllerAccess &c) { (void)c.measurementDuration(1); }, {});
    row("start tracking", [](const ControllerAccess &c) { (void)c.startTracking(); },
        {"Error: Unable to start tracking"});
    row("status", [](const ControllerAccess &c) { c.stopTrackingIfMeasuring(); },
        {"Error: Unable to check tracking status"});
    row("cameras", [](const ControllerAccess &c) { (void)c.numberOfCameras(); },
        {"Error: Unable to get number of cameras"});
    row("position", [](const ControllerAccess &c) { (void)c.positionOfCamera(1); },
        {"Error: Unable to get room cal of camera"});
    row("write room adjustment", [](const ControllerAccess &c) { c.writeRoomAdjustment(RoomTrafoData()); },
        {"Error: Unable to set room adjustment rotation", "Error: Unable to set room adjustment translation",
         "Error: Unable to set room adjustment scaling"});
    row("extra transformation", [](const ControllerAccess &c) { (void)c.extraTransformation(); },
        {"Error: Unable to get info extra translation"});
    row("neutral extra transformation", [](const ControllerAccess &c) { c.setNeutralExtraTransformation(); },
        {"Error: Unable to set extra rotation default", "Error: Unable to set extra translation default",
         "Error: Unable to set extra scaling default"});
    row("restore extra transformation",
        [](const ControllerAccess &c) { c.restoreExtraTransformation(RoomTrafoData()); },
        {"Error: Unable to set extra rotation", "Error: Unable to set extra translation",
         "Error: Unable to set extra scaling"});
    row("reference", [](const ControllerAccess &c) { (void)c.referenceTarget(); },
        {"Error: Unable to get info reference target"});
    row("unset reference", [](const ControllerAccess &c) { (void)c.unsetReferenceTarget(); },
        {"Error: Unable to unset reference target"});
    row("restore reference", [](const ControllerAccess &c) { (void)c.restoreReferenceTarget("body b07"); },
        {"Error: Unable to restore reference target"});
    row("tool check", [](const ControllerAccess &c) { c.checkMeasurementTool(); },
        {"Error: Unable to get info measurement tool available"});
    row("tools", [](const ControllerAccess &c) { (void)c.numberOfMeasurementTools(); },
        {"Error : Unable to get number of measurement tools"});
    row("tip", [](const ControllerAccess &c) { (void)c.tipIsCalibrated(1); },
        {"Error : Unable to get info of tip calibration"});
    row("tolerance", [](const ControllerAccess &c) { (void)c.tipTolerance(1); },
        {"Error : Unable to get tip tolerance of measurement tool"});
    row("start measurement", [](const ControllerAccess &c) { c.startTipMeasurement(1); },
        {"Error : Unable to start measurement tool measurement"});
    row("coordinate type", [](const ControllerAccess &c) { (void)c.coordinateType(); },
        {"Error: Cannot require room calibration coordinate type."});
}

void ControllerAccessTest::shouldReportAFailureInTheRequiredWords()
{
    QFETCH(Operation, operation);
    QFETCH(QStringList, expected);
    // GIVEN
    RecordingHost host;
    host.failFrom(1);
    const ControllerAccess controller(&host, &current);
    // WHEN
    operation(controller);
    // THEN
    QCOMPARE(host.reports(), expected);
}

void ControllerAccessTest::shouldPassFormatsAndValuesUnformatted()
{
    RecordingHost host;
    const ControllerAccess controller(&host, &current);

    controller.writeRoomAdjustment(RoomTrafoData());
    (void)controller.roomOfCamera(1);
    (void)controller.restoreReferenceTarget("body b01");

    QCOMPARE(host.formats(),
             QStringList({"tracking extra_rotation %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f %.8f",
                          "tracking extra_translation %.3f %.3f %.3f", "tracking extra_scaling %.5f",
                          "tracking room c%2.2d", "tracking reference %s"}));
}

void ControllerAccessTest::shouldNeverPrintANegativeZero()
{
    RecordingHost host;
    RoomTrafoData data;
    data.rotation = {1.0, -0.0, -1.2246e-16, -4.9e-9, 1.0, -6e-9, -0.5, 1e-16, 1.0};
    data.translation = {-0.0, -0.0004, -0.0005};

    ControllerAccess(&host, &current).writeRoomAdjustment(data);

    QCOMPARE(host.calls(), QStringList({"write tracking extra_rotation 1.00000000 0.00000000 0.00000000 "
                                        "0.00000000 1.00000000 -0.00000001 -0.50000000 0.00000000 1.00000000",
                                        "write tracking extra_translation 0.000 0.000 -0.001",
                                        "write tracking extra_scaling 1.00000"}));
}

void ControllerAccessTest::shouldCompareWholeAnswersOnly_data()
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

void ControllerAccessTest::shouldCompareWholeAnswersOnly()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, expected);
    RecordingHost host;
    host.setAnswer("tracking available", answer);

    QCOMPARE(int(ControllerAccess(&host, &current).trackingAvailable()), expected);
}

void ControllerAccessTest::shouldTakeAnyNonZeroResultAsFailure_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("1") << 1;
    QTest::newRow("-1") << -1;
    QTest::newRow("256") << 256;
    QTest::newRow("only the highest bit") << std::numeric_limits<int>::min();
}

void ControllerAccessTest::shouldTakeAnyNonZeroResultAsFailure()
{
    QFETCH(int, code);
    RecordingHost host;
    host.setFailureCode(code);
    host.failFrom(1);
    const ControllerAccess controller(&host, &current);

    QCOMPARE(controller.trackingAvailable(), Reply::Failed);
    QVERIFY(!controller.numberOfCameras());
    QVERIFY(!controller.cameraHasRoom(1));
    QVERIFY(!controller.unsetReferenceTarget());
    QVERIFY(!controller.startTracking());
}

void ControllerAccessTest::shouldFailEverywhereWithoutAChannel()
{
    const ControllerAccess controller(nullptr, &current);

    QCOMPARE(controller.trackingAvailable(), Reply::Failed);
    QCOMPARE(controller.activity(), Activity::Failed);
    QCOMPARE(controller.roomOfCamera(1), CameraRoom::Failed);
    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
    QVERIFY(!controller.numberOfCameras());
    QVERIFY(!controller.startTracking());
    QVERIFY(!controller.extraTransformation());
    controller.writeRoomAdjustment(RoomTrafoData());
    controller.subscribe(nullptr);
    controller.unsubscribe(nullptr);
}

void ControllerAccessTest::shouldReadTheRotationOnlyWhenAllNineNumbersConvert_data()
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

void ControllerAccessTest::shouldReadTheRotationOnlyWhenAllNineNumbersConvert()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, taken);
    RecordingHost host;
    host.setAnswer("tracking extra_rotation", answer);
    host.setAnswer("tracking extra_translation", "1.5 2.5 -3.5");

    const RoomTrafoData data = ControllerAccess(&host, &current).roomAdjustment();

    QCOMPARE(data.rotation[0], taken ? 0.5 : 1.0);
    QCOMPARE(data.translation, (std::array<double, 3>{1.5, 2.5, -3.5}));
}

void ControllerAccessTest::shouldTakeMissingCameraCoordinatesAsZero_data()
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

void ControllerAccessTest::shouldTakeMissingCameraCoordinatesAsZero()
{
    QFETCH(QByteArray, answer);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    RecordingHost host;
    host.setAnswer("tracking room c01", answer);

    QCOMPARE(ControllerAccess(&host, &current).positionOfCamera(1), (std::array<double, 3>{x, y, z}));
}

void ControllerAccessTest::shouldSurviveAnswersOfAThousandCharacters()
{
    RecordingHost host;
    const QByteArray endless(1000, 'n');
    for (const char *text : {"tracking available", "tracking extra_rotation", "tracking reference",
                             "roomcal coordinate_type", "tracking room c01"})
        host.setAnswer(text, endless);
    const ControllerAccess controller(&host, &current);

    QCOMPARE(controller.trackingAvailable(), Reply::Other);
    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    QCOMPARE(controller.referenceTarget(), endless);
    QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
    QCOMPARE(controller.roomOfCamera(1), CameraRoom::Present);
}

void ControllerAccessTest::shouldNotAskOldControllersForTheExtraTransformation()
{
    RecordingHost host;
    const BackendVersions old = versions(0, 15, 9);
    const ControllerAccess controller(&host, &old);

    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    controller.writeRoomAdjustment(turnedRoom());

    QCOMPARE(host.calls(), QStringList());
}

void ControllerAccessTest::shouldNeverUseTheValueOfAFailedRead()
{
    RecordingHost host;
    host.failFrom(1);
    const ControllerAccess controller(&host, &current);

    QVERIFY(!controller.numberOfCameras());
    QVERIFY(!controller.extraScaling());
    QCOMPARE(controller.numberOfMeasurementTools(), 0);
    QCOMPARE(controller.measurementDuration(1), 1.0);
    QCOMPARE(controller.tipTolerance(1), 1.5);
    QCOMPARE(controller.referenceTarget(), QByteArray());
    QCOMPARE(controller.positionOfCamera(1), (std::array<double, 3>{0.0, 0.0, 0.0}));
    QVERIFY(!controller.tipIsCalibrated(1));
    QVERIFY(!controller.tipIsCalibratedQuietly(1));
}

void ControllerAccessTest::shouldStopReadingTheExtraTransformationAtTheFirstFailure_data()
{
    QTest::addColumn<int>("failing");
    QTest::addColumn<QString>("report");
    QTest::newRow("translation") << 1 << "Error: Unable to get info extra translation";
    QTest::newRow("rotation") << 2 << "Error: Unable to get info extra rotation";
    QTest::newRow("scaling") << 3 << "Error: Unable to get info extra scaling";
}

void ControllerAccessTest::shouldStopReadingTheExtraTransformationAtTheFirstFailure()
{
    QFETCH(int, failing);
    QFETCH(QString, report);
    RecordingHost host;
    host.failCall(failing);

    QVERIFY(!ControllerAccess(&host, &current).extraTransformation());

    QCOMPARE(host.count(), failing);
    QCOMPARE(host.reports(), QStringList{report});
}

void ControllerAccessTest::shouldTellWhatTheControllerIsDoing_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("expected");
    QTest::newRow("measuring") << QByteArray("mea") << int(Activity::Measuring);
    QTest::newRow("calibrating") << QByteArray("cal") << int(Activity::Calibrating);
    QTest::newRow("error") << QByteArray("err") << int(Activity::Error);
    QTest::newRow("none") << QByteArray("none") << int(Activity::None);
    QTest::newRow("only the beginning of a word") << QByteArray("me") << int(Activity::Other);
    QTest::newRow("more than the word") << QByteArray("mea ") << int(Activity::Other);
    QTest::newRow("nothing") << QByteArray("") << int(Activity::Other);
}

void ControllerAccessTest::shouldTellWhatTheControllerIsDoing()
{
    QFETCH(QByteArray, answer);
    RecordingHost host;
    host.setAnswer("status active", answer);

    QTEST(int(ControllerAccess(&host, &current).activity()), "expected");
}

void ControllerAccessTest::shouldTellWhetherACameraHasARoom_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("expected");
    QTest::newRow("position and rotation")
        << QByteArray("1.5 2.5 3.5 1 0 0 0 1 0 0 0 1") << int(CameraRoom::Present);
    QTest::newRow("none") << QByteArray("none") << int(CameraRoom::None);
    QTest::newRow("more than none") << QByteArray("none 1") << int(CameraRoom::Present);
    QTest::newRow("nothing") << QByteArray("") << int(CameraRoom::Present);
}

void ControllerAccessTest::shouldTellWhetherACameraHasARoom()
{
    QFETCH(QByteArray, answer);
    RecordingHost host;
    host.setAnswer("tracking room c01", answer);

    QTEST(int(ControllerAccess(&host, &current).roomOfCamera(1)), "expected");
}

void ControllerAccessTest::shouldMapEveryCoordinateType_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("code");
    QTest::newRow("normal") << QByteArray("normal") << 0;
    QTest::newRow("powerwall") << QByteArray("powerwall") << 1;
    QTest::newRow("powerwall_standing") << QByteArray("powerwall_standing") << 2;
    QTest::newRow("mid_camera") << QByteArray("mid_camera") << 3;
    QTest::newRow("none") << QByteArray("none") << 5;
    QTest::newRow("first_camera") << QByteArray("first_camera") << -1;
    QTest::newRow("nothing") << QByteArray("") << -1;
}

void ControllerAccessTest::shouldMapEveryCoordinateType()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, code);
    RecordingHost host;
    host.setAnswer("roomcal coordinate_type", answer);
    const BackendVersions old = versions(1, 8, 0);

    QCOMPARE(int(ControllerAccess(&host, &old).coordinateType()), code);
    QCOMPARE(host.calls(), QStringList({"read roomcal coordinate_type"}));
}

void ControllerAccessTest::shouldAskForTheCurrentTypeWhenTheLastIsNone()
{
    RecordingHost host;
    host.setAnswer("roomcal last_coordinate_type", "none");
    host.setAnswer("roomcal coordinate_type", "powerwall");

    QCOMPARE(ControllerAccess(&host, &current).coordinateType(), CoordinateType::Powerwall);
    QCOMPARE(host.calls(),
             QStringList({"read roomcal last_coordinate_type", "read roomcal coordinate_type"}));
}

void ControllerAccessTest::shouldNotAskFurtherWhenTheLastTypeCannotBeRead()
{
    RecordingHost host;
    host.failCall(1);

    QCOMPARE(ControllerAccess(&host, &current).coordinateType(), CoordinateType::Unknown);
    QCOMPARE(host.calls(), QStringList({"read roomcal last_coordinate_type",
                                        "report Error: Cannot require room calibration coordinate type."}));
}

void ControllerAccessTest::shouldFollowTheVersionRule_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("patch");
    QTest::addColumn<bool>("passes");
    QTest::newRow("1.18.0") << 1 << 18 << 0 << true;
    QTest::newRow("1.18.7") << 1 << 18 << 7 << true;
    QTest::newRow("1.18, third not known") << 1 << 18 << -1 << true;
    QTest::newRow("1.18.-2") << 1 << 18 << -2 << false;
    QTest::newRow("1.17.99") << 1 << 17 << 99 << false;
    QTest::newRow("1.19.-2") << 1 << 19 << -2 << true;
    QTest::newRow("1.2 is less than 1.18") << 1 << 2 << 0 << false;
    QTest::newRow("2.0") << 2 << 0 << -2 << true;
    QTest::newRow("0.99") << 0 << 99 << 0 << false;
}

void ControllerAccessTest::shouldFollowTheVersionRule()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, patch);
    QFETCH(bool, passes);
    const BackendVersions version = versions(major, minor, patch);

    QCOMPARE(ControllerVersion::isAtLeast(&version, 1, 18), passes);
    QVERIFY(!ControllerVersion::isAtLeast(nullptr, 0, 0));
}

void ControllerAccessTest::shouldKnowTheThresholdOfEveryFeature_data()
{
    QTest::addColumn<int>("feature");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::newRow("camera table") << int(ControllerFeature::CameraTable) << 0 << 9;
    QTest::newRow("extra transformation") << int(ControllerFeature::ExtraTransformation) << 0 << 16;
    QTest::newRow("tracking availability") << int(ControllerFeature::TrackingAvailability) << 0 << 17;
    QTest::newRow("has room") << int(ControllerFeature::HasRoomQuery) << 1 << 18;
    QTest::newRow("last coordinate type") << int(ControllerFeature::LastCoordinateType) << 1 << 9;
    QTest::newRow("point measurement") << int(ControllerFeature::PointMeasurement) << 1 << 3;
    QTest::newRow("calibration duration") << int(ControllerFeature::CalibrationDuration) << 0 << 12;
    QTest::newRow("step duration") << int(ControllerFeature::StepDuration) << 1 << 4;
    QTest::newRow("camera progress") << int(ControllerFeature::CameraProgress) << 1 << 11;
    QTest::newRow("angle tool") << int(ControllerFeature::AngleToolCalibration) << 1 << 23;
}

void ControllerAccessTest::shouldKnowTheThresholdOfEveryFeature()
{
    QFETCH(int, feature);
    QFETCH(int, major);
    QFETCH(int, minor);
    const auto wanted = static_cast<ControllerFeature>(feature);
    const BackendVersions exact = versions(major, minor, -1);
    const BackendVersions before = versions(major, minor - 1, 9);

    QVERIFY(ControllerVersion::supports(&exact, wanted));
    QVERIFY(!ControllerVersion::supports(&before, wanted));
}

ROOM_TEST_CLASS(ControllerAccessTest)
#include "ControllerAccessTest.moc"
