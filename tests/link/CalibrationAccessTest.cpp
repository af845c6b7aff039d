#include "ControllerAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"

#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

using Operation = std::function<void(const ControllerAccess &)>;

} // namespace

Q_DECLARE_METATYPE(Operation)

class CalibrationAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldSpellEachTextAndReport_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("report");
        const auto row = [](const char *name, Operation operation, const char *call, const char *format,
                            const char *report) {
            QTest::newRow(name) << std::move(operation) << QString::fromLatin1(call)
                                << QString::fromLatin1(format) << QString::fromLatin1(report);
        };
        row(
            "description", [](const ControllerAccess &c) { (void)c.calibrationDescription("room"); },
            "read cal type_desc room", "cal type_desc %s", "");
        row(
            "steps", [](const ControllerAccess &c) { (void)c.calibrationSteps("room"); },
            "read cal number_of_steps room", "cal number_of_steps %s", "");
        row(
            "announced pause", [](const ControllerAccess &c) { (void)c.announcedPause("room", 1); },
            "read cal step_pause room s01", "cal step_pause %s s%02d", "");
        row(
            "step pause", [](const ControllerAccess &c) { (void)c.stepPause("room", 2); },
            "command velmar2 get cal step_pause room s02", "velmar2 get cal step_pause %s s%02d", "");
        row(
            "start", [](const ControllerAccess &c) { (void)c.startCalibration("room"); },
            "command velmar2 cal room start", "velmar2 cal %s start", "");
        row(
            "stop", [](const ControllerAccess &c) { c.stopCalibration("room"); },
            "command velmar2 cal room stop", "velmar2 cal %s stop", "");
        row(
            "progress", [](const ControllerAccess &c) { (void)c.calibrationProgress(); },
            "read status progress", "status progress", "");
        row(
            "step", [](const ControllerAccess &c) { (void)c.activeStep(); }, "read status step_active",
            "status step_active", "");
        row(
            "step progress", [](const ControllerAccess &c) { (void)c.stepProgress(); },
            "read status step_progress", "status step_progress", "");
        row(
            "step duration", [](const ControllerAccess &c) { (void)c.stepDuration("room", 1); },
            "read cal step_duration room s01", "cal step_duration %s s%02d", "");
        row(
            "error", [](const ControllerAccess &c) { (void)c.calibrationError(); },
            "command velmar2 get status err", "velmar2 get status err", "");
        row(
            "cameras", [](const ControllerAccess &c) { (void)c.numberOfCamerasToCalibrate(); },
            "read camera number_of_cameras", "camera number_of_cameras",
            "Error: Unable to get the number of cameras");
        row(
            "serial", [](const ControllerAccess &c) { (void)c.cameraSerial(101); },
            "command velmar2 get camera camera c101", "velmar2 get camera camera c%02d", "");
        row(
            "camera progress", [](const ControllerAccess &c) { (void)c.cameraProgress(3); },
            "command velmar2 get status camera_progress c03", "velmar2 get status camera_progress c%02d", "");
        row(
            "coordinate types", [](const ControllerAccess &c) { (void)c.coordinateTypesForAngleTool(); },
            "read roomcal number_of_available_coordinate_types",
            "roomcal number_of_available_coordinate_types",
            "Error: Unable to get number of coordinate system types");
        row(
            "chosen type", [](const ControllerAccess &c) { (void)c.chosenCoordinateType(); },
            "read roomcal coordinate_type", "roomcal coordinate_type",
            "Error: Unable to get coordinate type");
        row(
            "distances", [](const ControllerAccess &c) { (void)c.angleToolDistances(); },
            "read roomcal angle", "roomcal angle", "Error: Unable to get values of last used angle tool");
        row(
            "height", [](const ControllerAccess &c) { (void)c.angleToolHeight(); },
            "read roomcal angle_height", "roomcal angle_height", "Error: Unable to angle tool height");
        row(
            "kind", [](const ControllerAccess &c) { (void)c.chooseAngleToolCalibration(); },
            "write roomcal type angle_no_wand", "roomcal type angle_no_wand",
            "Error: Cannot set room calibration type to only angle tool");
        row(
            "new distances",
            [](const ControllerAccess &c) {
                c.setAngleToolDistances({192.0, 57.0, 112.5});
            },
            "write roomcal angle 192.000 57.000 112.500", "roomcal angle %.3f %.3f %.3f",
            "Error: Unable to set roomcalibration angle tool");
        row(
            "new height", [](const ControllerAccess &c) { c.setAngleToolHeight(15.6); },
            "write roomcal angle_height 15.600", "roomcal angle_height %.3f",
            "Error: Unable to set angle tool height");
        row(
            "duration", [](const ControllerAccess &c) { (void)c.roomCalibrationDuration(); },
            "read roomcal duration", "roomcal duration",
            "Error: Cannot get information room calibration duration");
        row(
            "short duration", [](const ControllerAccess &c) { c.shortenRoomCalibration(); },
            "write roomcal duration 5.0", "roomcal duration 5.0",
            "Error: Cannot set room calibration duration");
        row(
            "old duration", [](const ControllerAccess &c) { c.restoreRoomCalibrationDuration(12.25); },
            "write roomcal duration 12.2", "roomcal duration %.1f",
            "Error: Cannot set room calibration duration");
        row(
            "coordinate type", [](const ControllerAccess &c) { c.chooseCoordinateType("powerwall"); },
            "write roomcal coordinate_type powerwall", "roomcal coordinate_type %s",
            "Error: Cannot set room calibration coordinate system");
        row(
            "acceptance", [](const ControllerAccess &c) { (void)c.acceptNewCalibration(); },
            "command velmar2 roomcal accept_new_calibration", "velmar2 roomcal accept_new_calibration",
            "Unable to set new calibration to Controller");
    }

    void shouldSpellEachTextAndReport()
    {
        QFETCH(Operation, operation);
        QFETCH(QString, call);
        QFETCH(QString, format);
        QFETCH(QString, report);
        const BackendVersions versions = interfaceVersion(1, 23, 0);
        RecordingHost host;
        const ControllerAccess access(&host, &versions);

        operation(access);
        QCOMPARE(host.calls(), QStringList{call});
        QCOMPARE(host.formats(), QStringList{format});

        host.clear();
        host.failCall(1);
        operation(access);
        QCOMPARE(host.reports(), report.isEmpty() ? QStringList() : QStringList{report});
    }

    void shouldFallBackWhenNothingCanBeRead()
    {
        const BackendVersions versions = interfaceVersion(1, 23, 0);
        RecordingHost host;
        host.failFrom(1);
        const ControllerAccess access(&host, &versions);

        QCOMPARE(access.calibrationDescription("room"), QByteArray());
        QCOMPARE(access.calibrationSteps("room"), 1);
        QCOMPARE(access.announcedPause("room", 1), 0);
        QVERIFY(!access.stepPause("room", 1));
        QVERIFY(!access.startCalibration("room"));
        QVERIFY(!access.calibrationProgress());
        QVERIFY(access.activeStep() == CalibrationStep::Failed);
        QVERIFY(!access.stepProgress());
        QVERIFY(!access.stepDuration("room", 1));
        QVERIFY(!access.numberOfCamerasToCalibrate());
        QCOMPARE(access.cameraProgress(1), 0.0F);
        QVERIFY(access.coordinateTypesForAngleTool().empty());
        QCOMPARE(access.chosenCoordinateType(), QByteArray("normal"));
        QVERIFY(!access.angleToolDistances());
        QVERIFY(!access.angleToolHeight());
        QVERIFY(!access.chooseAngleToolCalibration());
        QCOMPARE(access.roomCalibrationDuration(), 30.0);
        QVERIFY(!access.acceptNewCalibration());
    }

    void shouldTreatAMissingChannelAsOneThatFails()
    {
        const ControllerAccess access(nullptr, nullptr);

        QVERIFY(!access.startCalibration("room"));
        access.stopCalibration("room");
        QVERIFY(!access.acceptNewCalibration());
        QCOMPARE(access.calibrationError(), QByteArray());
        QVERIFY(access.coordinateTypesForAngleTool().empty());
        QCOMPARE(access.roomCalibrationDuration(), 30.0);
    }

    void shouldOnlyTakeTheExactOkForAStart()
    {
        RecordingHost host;
        const ControllerAccess access(&host, nullptr);

        QVERIFY(access.startCalibration("room"));
        host.setAnswer(QStringLiteral("velmar2 cal room start"), "velmar2 ok ");
        QVERIFY(!access.startCalibration("room"));
        host.setAnswer(QStringLiteral("velmar2 cal room start"), "velmar2 err 21 \"tracking is running\"");
        QVERIFY(!access.startCalibration("room"));
    }

    void shouldBoundTheNumbersThatItWorksThrough()
    {
        RecordingHost host;
        const ControllerAccess access(&host, nullptr);

        host.setAnswer(QStringLiteral("camera number_of_cameras"), "2000000000");
        QCOMPARE(access.numberOfCamerasToCalibrate().value_or(-1), 1000);
        QCOMPARE(access.numberOfCameras().value_or(-1), 1000);
        host.setAnswer(QStringLiteral("camera number_of_cameras"), "-3");
        QCOMPARE(access.numberOfCamerasToCalibrate().value_or(-1), 0);
        QCOMPARE(access.numberOfCameras().value_or(-1), 0);
    }

    void shouldListTheTypesThatSuitTheAngleTool()
    {
        RecordingHost host;
        host.setAnswer(QStringLiteral("roomcal number_of_available_coordinate_types"), "5");
        host.setAnswer(QStringLiteral("roomcal available_coordinate_type t01"), "normal");
        host.setAnswer(QStringLiteral("roomcal available_coordinate_type t02"), "mid_camera");
        host.setAnswer(QStringLiteral("roomcal available_coordinate_type t04"), "first_camera");
        host.setAnswer(QStringLiteral("roomcal available_coordinate_type t05"), "powerwall");
        host.setAnswer(QStringLiteral("roomcal available_coordinate_type_desc normal"), "\"Normal\"");
        host.failText(QStringLiteral("roomcal available_coordinate_type t03"));
        host.failText(QStringLiteral("roomcal available_coordinate_type_desc powerwall"));
        const ControllerAccess access(&host, nullptr);

        const std::vector<OfferedCoordinateType> types = access.coordinateTypesForAngleTool();

        QCOMPARE(int(types.size()), 2);
        QCOMPARE(types[0].identifier, QByteArray("normal"));
        QCOMPARE(types[0].description, QByteArray("\"Normal\""));
        QCOMPARE(types[1].identifier, QByteArray("powerwall"));
        QCOMPARE(types[1].description, QByteArray("powerwall"));
        const QStringList expected{QStringLiteral("read roomcal number_of_available_coordinate_types"),
                                   QStringLiteral("read roomcal available_coordinate_type t01"),
                                   QStringLiteral("read roomcal available_coordinate_type_desc normal"),
                                   QStringLiteral("read roomcal available_coordinate_type t02"),
                                   QStringLiteral("read roomcal available_coordinate_type t03"),
                                   QStringLiteral("report Error: Unable to get coordinate type"),
                                   QStringLiteral("read roomcal available_coordinate_type t04"),
                                   QStringLiteral("read roomcal available_coordinate_type t05"),
                                   QStringLiteral("read roomcal available_coordinate_type_desc powerwall"),
                                   QStringLiteral("report Error: Unable to get coordinate type description")};
        QCOMPARE(host.calls(), expected);
    }

    void shouldAskForTheHeightFromOneTwentyThreeOn()
    {
        const BackendVersions old = interfaceVersion(1, 22, 0);
        RecordingHost host;

        QVERIFY(!ControllerAccess(&host, &old).angleToolHeight());
        QCOMPARE(host.calls(), QStringList());
    }

    void shouldAskForTheDurationFromZeroTwelveOn()
    {
        const BackendVersions old = interfaceVersion(0, 11, 0);
        const BackendVersions young = interfaceVersion(0, 12, -1);
        RecordingHost host;
        host.setAnswer(QStringLiteral("roomcal duration"), "12.5");

        QCOMPARE(ControllerAccess(&host, &old).roomCalibrationDuration(), 30.0);
        QCOMPARE(host.calls(), QStringList());
        QCOMPARE(ControllerAccess(&host, &young).roomCalibrationDuration(), 12.5);
    }

    void shouldRestartTrackingOnlyWhenIdleAndPossible_data()
    {
        QTest::addColumn<QByteArray>("active");
        QTest::addColumn<QByteArray>("available");
        QTest::addColumn<int>("calls");
        QTest::newRow("idle") << QByteArray("none") << QByteArray("yes") << 3;
        QTest::newRow("after an error") << QByteArray("err") << QByteArray("yes") << 3;
        QTest::newRow("not possible") << QByteArray("none") << QByteArray("no") << 2;
        QTest::newRow("nearly yes") << QByteArray("none") << QByteArray("yes ") << 2;
        QTest::newRow("measuring") << QByteArray("mea") << QByteArray("yes") << 1;
        QTest::newRow("calibrating") << QByteArray("cal") << QByteArray("yes") << 1;
    }

    void shouldRestartTrackingOnlyWhenIdleAndPossible()
    {
        QFETCH(QByteArray, active);
        QFETCH(QByteArray, available);
        RecordingHost host;
        host.setAnswer(QStringLiteral("status active"), active);
        host.setAnswer(QStringLiteral("tracking available"), available);

        ControllerAccess(&host, nullptr).restartTrackingAfterCalibration();

        const QStringList whole{QStringLiteral("read status active"),
                                QStringLiteral("read tracking available"),
                                QStringLiteral("command velmar2 tracking start")};
        QFETCH(int, calls);
        QCOMPARE(host.calls(), whole.mid(0, calls));
    }

    void shouldNotRestartTrackingWhenTheActivityIsUnknown()
    {
        RecordingHost host;
        host.failCall(1);

        ControllerAccess(&host, nullptr).restartTrackingAfterCalibration();

        QCOMPARE(host.calls(), QStringList{QStringLiteral("read status active")});
    }

    void shouldNoteTheBeginningAndTheCancellation()
    {
        RecordingHost host;
        const ControllerAccess access(&host, nullptr);

        access.noteCalibrationStarted();
        access.noteCalibrationCancelled();

        QCOMPARE(host.reports(),
                 (QStringList{QStringLiteral("calibration started"),
                              QStringLiteral("room adjustment according angle tool canceled")}));
    }
};

ROOM_TEST_CLASS(CalibrationAccessTest)
#include "CalibrationAccessTest.moc"
