#include "ControllerAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"
#include "TestRegistry.h"

#include <QtTest>

#include <functional>
#include <limits>

namespace
{

using Operation = std::function<void(const ControllerAccess &)>;

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
    void shouldTakeAnyNonZeroResultAsFailure_data();
    void shouldTakeAnyNonZeroResultAsFailure();
    void shouldFailEverywhereWithoutAChannel();
    void shouldNotAskOldControllersForTheExtraTransformation();
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
    row("start tracking", [](const ControllerAccess &c) { c.startTracking(); },
        {"command velmar2 tracking start"});
    row("stop tracking at rest", [](const ControllerAccess &c) { c.stopTrackingIfMeasuring(); },
        {"read status active"});
    row("stop tracking while measuring",
        [](const ControllerAccess &c) {
            c.startTracking();
            c.stopTrackingIfMeasuring();
        },
        {"command velmar2 tracking start", "read status active", "command velmar2 tracking stop"});
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
    row("configuration", [](const ControllerAccess &c) { (void)c.configurationChangeable(); }, {});
    row("has room", [](const ControllerAccess &c) { (void)c.cameraHasRoom(1); }, {});
    row("room", [](const ControllerAccess &c) { (void)c.roomOfCamera(1); }, {});
    row("room adjustment", [](const ControllerAccess &c) { (void)c.roomAdjustment(); }, {});
    row("scaling", [](const ControllerAccess &c) { (void)c.extraScaling(); }, {});
    row("tool available", [](const ControllerAccess &c) { (void)c.measurementToolAvailable(); }, {});
    row("quiet tip", [](const ControllerAccess &c) { (void)c.tipIsCalibratedQuietly(1); }, {});
    row("duration", [](const ControllerAccess &c) { (void)c.measurementDuration(1); }, {});
    row("start tracking", [](const ControllerAccess &c) { c.startTracking(); },
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
}

void ControllerAccessTest::shouldFailEverywhereWithoutAChannel()
{
    const ControllerAccess controller(nullptr, &current);

    QCOMPARE(controller.trackingAvailable(), Reply::Failed);
    QCOMPARE(controller.roomOfCamera(1), CameraRoom::Failed);
    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    QCOMPARE(controller.coordinateType(), CoordinateType::Unknown);
    QVERIFY(!controller.numberOfCameras());
    QVERIFY(!controller.extraTransformation());
    controller.writeRoomAdjustment(RoomTrafoData());
    controller.subscribe(nullptr);
    controller.unsubscribe(nullptr);
}

void ControllerAccessTest::shouldNotAskOldControllersForTheExtraTransformation()
{
    RecordingHost host;
    const BackendVersions old = interfaceVersion(0, 15, 9);
    const ControllerAccess controller(&host, &old);

    QCOMPARE(controller.roomAdjustment(), RoomTrafoData());
    controller.writeRoomAdjustment(turnedRoom());

    QCOMPARE(host.calls(), QStringList());
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
    const BackendVersions version = interfaceVersion(major, minor, patch);

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
    const BackendVersions exact = interfaceVersion(major, minor, -1);
    const BackendVersions before = interfaceVersion(major, minor - 1, 9);

    QVERIFY(ControllerVersion::supports(&exact, wanted));
    QVERIFY(!ControllerVersion::supports(&before, wanted));
}

ROOM_TEST_CLASS(ControllerAccessTest)
#include "ControllerAccessTest.moc"
