#include "CalibrationAccess.h"
#include "DoomedAccess.h"
#include "InterfaceVersion.h"
#include "RecordingHost.h"

#include "TestRegistry.h"

#include <QtTest>

#include <functional>

namespace
{

using Operation = std::function<void(const CalibrationAccess &)>;

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
        const auto row = [](const char *name, const Operation &operation, const char *call,
                            const char *format, const char *report) {
            QTest::newRow(name) << operation << QString::fromLatin1(call) << QString::fromLatin1(format)
                                << QString::fromLatin1(report);
        };
        row(
            "description", [](const CalibrationAccess &c) { (void)c.description("room"); },
            "read cal type_desc room", "cal type_desc %s", "");
        row(
            "steps", [](const CalibrationAccess &c) { (void)c.steps("room"); },
            "read cal number_of_steps room", "cal number_of_steps %s", "");
        row(
            "announced pause", [](const CalibrationAccess &c) { (void)c.announcedPause("room", 1); },
            "read cal step_pause room s01", "cal step_pause %s s%02d", "");
        row(
            "step pause", [](const CalibrationAccess &c) { (void)c.stepPause("room", 2); },
            "command velmar2 get cal step_pause room s02", "velmar2 get cal step_pause %s s%02d", "");
        row(
            "start", [](const CalibrationAccess &c) { (void)c.start("room"); },
            "command velmar2 cal room start", "velmar2 cal %s start", "");
        row(
            "stop", [](const CalibrationAccess &c) { c.stop("room"); }, "command velmar2 cal room stop",
            "velmar2 cal %s stop", "");
        row(
            "progress", [](const CalibrationAccess &c) { (void)c.progress(); }, "read status progress",
            "status progress", "");
        row(
            "step", [](const CalibrationAccess &c) { (void)c.activeStep(); }, "read status step_active",
            "status step_active", "");
        row(
            "step progress", [](const CalibrationAccess &c) { (void)c.stepProgress(); },
            "read status step_progress", "status step_progress", "");
        row(
            "step duration", [](const CalibrationAccess &c) { (void)c.stepDuration("room", 1); },
            "read cal step_duration room s01", "cal step_duration %s s%02d", "");
        row(
            "error", [](const CalibrationAccess &c) { (void)c.error(); }, "command velmar2 get status err",
            "velmar2 get status err", "");
        row(
            "cameras", [](const CalibrationAccess &c) { (void)c.numberOfCameras(); },
            "read camera number_of_cameras", "camera number_of_cameras",
            "Error: Unable to get the number of cameras");
        row(
            "serial", [](const CalibrationAccess &c) { (void)c.cameraSerial(101); },
            "command velmar2 get camera camera c101", "velmar2 get camera camera c%02d", "");
        row(
            "camera progress", [](const CalibrationAccess &c) { (void)c.cameraProgress(3); },
            "command velmar2 get status camera_progress c03", "velmar2 get status camera_progress c%02d", "");
        row(
            "stop tracking", [](const CalibrationAccess &c) { c.stopTracking(); },
            "command velmar2 tracking stop", "velmar2 tracking stop", "");
        row(
            "activity", [](const CalibrationAccess &c) { (void)c.activity(); }, "read status active",
            "status active", "");
        row(
            "kind", [](const CalibrationAccess &c) { (void)c.chooseAngleTool(); },
            "write roomcal type angle_no_wand", "roomcal type angle_no_wand",
            "Error: Cannot set room calibration type to only angle tool");
        row(
            "acceptance", [](const CalibrationAccess &c) { (void)c.acceptNewCalibration(); },
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
        const CalibrationAccess access(&host, &versions);

        operation(access);
        QCOMPARE(host.calls(), QStringList{call});
        QCOMPARE(host.formats(), QStringList{format});

        host.clear();
        host.failCall(1);
        operation(access);
        QCOMPARE(host.reports(), report.isEmpty() ? QStringList() : QStringList{report});
    }

    void shouldTellWhatTheControllerIsDoing_data()
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

    void shouldTellWhatTheControllerIsDoing()
    {
        QFETCH(QByteArray, answer);
        RecordingHost host;
        host.setAnswer("status active", answer);

        QTEST(int(CalibrationAccess(&host, nullptr).activity()), "expected");
    }

    void shouldFallBackWhenNothingCanBeRead()
    {
        const BackendVersions versions = interfaceVersion(1, 23, 0);
        RecordingHost host;
        host.failFrom(1);
        const CalibrationAccess access(&host, &versions);

        QCOMPARE(access.description("room"), QByteArray());
        QCOMPARE(access.steps("room"), 1);
        QCOMPARE(access.announcedPause("room", 1), 0);
        QVERIFY(!access.stepPause("room", 1));
        QVERIFY(!access.start("room"));
        QVERIFY(!access.progress());
        QVERIFY(access.activeStep() == CalibrationStep::Failed);
        QVERIFY(!access.stepProgress());
        QVERIFY(!access.stepDuration("room", 1));
        QVERIFY(!access.numberOfCameras());
        QCOMPARE(access.cameraProgress(1), 0.0F);
        const AngleToolSettings settings = access.angleToolSettings();
        QVERIFY(settings.coordinateTypes.empty());
        QCOMPARE(settings.coordinateType, QByteArray("normal"));
        QVERIFY(!settings.distances);
        QVERIFY(!settings.height);
        QVERIFY(!access.chooseAngleTool());
        QCOMPARE(access.setUpAngleTool({}), 30.0);
        QVERIFY(!access.acceptNewCalibration());
    }

    void shouldTreatAMissingChannelAsOneThatFails()
    {
        const CalibrationAccess access(nullptr, nullptr);

        QVERIFY(!access.start("room"));
        access.stop("room");
        QVERIFY(!access.acceptNewCalibration());
        QCOMPARE(access.error(), QByteArray());
        QVERIFY(access.angleToolSettings().coordinateTypes.empty());
        QCOMPARE(access.setUpAngleTool({}), 30.0);
    }

    void shouldOnlyTakeTheExactOkForAStart()
    {
        RecordingHost host;
        const CalibrationAccess access(&host, nullptr);

        QVERIFY(access.start("room"));
        host.setAnswer(QStringLiteral("velmar2 cal room start"), "velmar2 ok ");
        QVERIFY(!access.start("room"));
        host.setAnswer(QStringLiteral("velmar2 cal room start"), "velmar2 err 21 \"tracking is running\"");
        QVERIFY(!access.start("room"));
    }

    void shouldBoundTheNumbersThatItWorksThrough()
    {
        RecordingHost host;
        const CalibrationAccess access(&host, nullptr);

        host.setAnswer(QStringLiteral("camera number_of_cameras"), "2000000000");
        QCOMPARE(access.numberOfCameras().value_or(-1), 1000);
        host.setAnswer(QStringLiteral("camera number_of_cameras"), "-3");
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
        const CalibrationAccess access(&host, nullptr);

        const std::vector<OfferedCoordinateType> types = access.angleToolSettings().coordinateTypes;

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
        QCOMPARE(host.calls().mid(0, expected.size()), expected);
    }

    void shouldReadTheSettingsOfTheAngleTool()
    {
        RecordingHost host;
        host.setAnswer("roomcal number_of_available_coordinate_types", "0");
        host.setAnswer("roomcal angle", "192 57 112.5");
        host.setAnswer("roomcal angle_height", "15.6");
        host.setAnswer("roomcal coordinate_type", "powerwall");
        const BackendVersions versions = interfaceVersion(1, 23, 0);

        const AngleToolSettings settings = CalibrationAccess(&host, &versions).angleToolSettings();

        QCOMPARE(settings.distances.value(), (std::array<double, 3>{192.0, 57.0, 112.5}));
        QCOMPARE(settings.height.value(), 15.6);
        QCOMPARE(settings.coordinateType, QByteArray("powerwall"));
        QCOMPARE(host.calls(),
                 QStringList({"read roomcal number_of_available_coordinate_types", "read roomcal angle",
                              "read roomcal angle_height", "read roomcal coordinate_type"}));
        QCOMPARE(host.formats(), QStringList({"roomcal number_of_available_coordinate_types", "roomcal angle",
                                              "roomcal angle_height", "roomcal coordinate_type"}));
    }

    void shouldReportEachSettingThatCannotBeRead()
    {
        RecordingHost host;
        host.failFrom(1);
        const BackendVersions versions = interfaceVersion(1, 23, 0);

        (void)CalibrationAccess(&host, &versions).angleToolSettings();

        QCOMPARE(host.reports(),
                 QStringList({"Error: Unable to get number of coordinate system types",
                              "Error: Unable to get values of last used angle tool",
                              "Error: Unable to angle tool height", "Error: Unable to get coordinate type"}));
    }

    void shouldAskForTheHeightFromOneTwentyThreeOn()
    {
        const BackendVersions old = interfaceVersion(1, 22, 0);
        RecordingHost host;

        QVERIFY(!CalibrationAccess(&host, &old).angleToolSettings().height);
        QVERIFY(!host.calls().contains("read roomcal angle_height"));
        QCOMPARE(host.reports(), QStringList());
    }

    void shouldSetUpTheAngleToolInOrder()
    {
        RecordingHost host;
        host.setAnswer("roomcal duration", "12.5");
        const BackendVersions versions = interfaceVersion(1, 23, 0);
        const CalibrationAccess access(&host, &versions);

        QCOMPARE(access.setUpAngleTool({{192.0, 57.0, 112.5}, 15.6, "powerwall"}), 12.5);

        QCOMPARE(
            host.calls(),
            QStringList({"write roomcal angle 192.000 57.000 112.500", "write roomcal angle_height 15.600",
                         "read roomcal duration", "write roomcal duration 5.0",
                         "write roomcal coordinate_type powerwall", "report calibration started"}));
        QCOMPARE(host.formats(),
                 QStringList({"roomcal angle %.3f %.3f %.3f", "roomcal angle_height %.3f", "roomcal duration",
                              "roomcal duration 5.0", "roomcal coordinate_type %s"}));
    }

    void shouldMakeEachStepOfTheSetupWhateverBecomesOfTheOthers()
    {
        RecordingHost host;
        host.failFrom(1);
        const BackendVersions versions = interfaceVersion(1, 23, 0);

        QCOMPARE(CalibrationAccess(&host, &versions).setUpAngleTool({{}, 0.0, "normal"}), 30.0);

        QCOMPARE(host.count(), 5);
        QCOMPARE(host.reports(), QStringList({"Error: Unable to set roomcalibration angle tool",
                                              "Error: Unable to set angle tool height",
                                              "Error: Cannot get information room calibration duration",
                                              "Error: Cannot set room calibration duration",
                                              "Error: Cannot set room calibration coordinate system",
                                              "calibration started"}));
    }

    void shouldAskForTheDurationFromZeroTwelveOn()
    {
        const BackendVersions old = interfaceVersion(0, 11, 0);
        const BackendVersions young = interfaceVersion(0, 12, -1);
        RecordingHost host;
        host.setAnswer(QStringLiteral("roomcal duration"), "12.5");

        QCOMPARE(CalibrationAccess(&host, &old).setUpAngleTool({}), 30.0);
        QVERIFY(!host.calls().contains("read roomcal duration"));
        QCOMPARE(CalibrationAccess(&host, &young).setUpAngleTool({}), 5.0); // what the first left
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

        CalibrationAccess(&host, nullptr).concludeAngleTool(12.25);

        const QStringList whole{QStringLiteral("read status active"),
                                QStringLiteral("read tracking available"),
                                QStringLiteral("command velmar2 tracking start")};
        QFETCH(int, calls);
        QCOMPARE(host.calls(), whole.mid(0, calls) << "write roomcal duration 12.2");
        QCOMPARE(host.formats().last(), QString("roomcal duration %.1f"));
    }

    void shouldNotRestartTrackingWhenTheActivityIsUnknown()
    {
        RecordingHost host;
        host.failCall(1);

        CalibrationAccess(&host, nullptr).concludeAngleTool(30.0);

        QCOMPARE(host.calls(), QStringList({"read status active", "write roomcal duration 30.0"}));
    }

    void shouldRestoreTheDurationFirstAfterACancellation()
    {
        RecordingHost host;

        CalibrationAccess(&host, nullptr).abandonAngleTool(30.0);

        QCOMPARE(host.calls(), QStringList({"report room adjustment according angle tool canceled",
                                            "write roomcal duration 30.0", "read status active",
                                            "read tracking available", "command velmar2 tracking start"}));
    }

    void shouldReportThatTheDurationCannotBeRestored()
    {
        RecordingHost host;
        host.failText("roomcal duration");

        CalibrationAccess(&host, nullptr).concludeAngleTool(30.0);

        QCOMPARE(host.reports(), QStringList({"Error: Cannot set room calibration duration"}));
    }

    void shouldClearAnErrorByTracking()
    {
        RecordingHost host;

        CalibrationAccess(&host, nullptr).clearError();

        QCOMPARE(host.calls(),
                 QStringList({"command velmar2 tracking start", "command velmar2 tracking stop"}));
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("settings") << Operation(
            [](const CalibrationAccess &c) { (void)c.angleToolSettings(); });
        QTest::newRow("setup") << Operation([](const CalibrationAccess &c) { (void)c.setUpAngleTool({}); });
        QTest::newRow("conclusion") << Operation(
            [](const CalibrationAccess &c) { c.concludeAngleTool(1.0); });
        QTest::newRow("abandonment") << Operation(
            [](const CalibrationAccess &c) { c.abandonAngleTool(1.0); });
        QTest::newRow("error") << Operation([](const CalibrationAccess &c) { c.clearError(); });
    }

    void shouldFinishAnOperationThoughTheHostDestroysIt()
    {
        QFETCH(Operation, operation);
        const BackendVersions versions = interfaceVersion(1, 23, 0);
        const QStringList calls = callsOfSafe<CalibrationAccess>(versions, operation);

        QVERIFY(calls.size() > 1);
        QCOMPARE(callsOfDoomed<CalibrationAccess>(versions, operation), calls);
    }
};

ROOM_TEST_CLASS(CalibrationAccessTest)
#include "CalibrationAccessTest.moc"
