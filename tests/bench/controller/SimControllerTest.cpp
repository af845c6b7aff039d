#include "SimController.h"
#include "SimScript.h"
#include "TestRegistry.h"

#include <QtTest>

namespace
{

QString ask(SimController &controller, const QString &line)
{
    return QString::fromStdString(controller.answer(line.toStdString()));
}

void tell(SimController &controller, const char *line)
{
    QCOMPARE(SimScript(controller).run(line), std::string("sim ok"));
}

} // namespace

/// Every text stands here once more, by hand.
class SimControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldAnswerEveryRequestOfTheDefaultScene_data();
    void shouldAnswerEveryRequestOfTheDefaultScene();
    void shouldRefuseWithAReadableError_data();
    void shouldRefuseWithAReadableError();
    void shouldNameTheFirstOfSeveralReasons_data();
    void shouldNameTheFirstOfSeveralReasons();
    void shouldTakeCoordinateSettingsWhileMeasuringWithANote_data();
    void shouldTakeCoordinateSettingsWhileMeasuringWithANote();
    void shouldRefuseEverySettingWhileLocked_data();
    void shouldRefuseEverySettingWhileLocked();
    void shouldTellTheNominalPointsOfTheWorkpiece();
    void shouldKeepTheWordsAtTheirPlaces();
    void shouldNeverAnswerMoreThanABufferHolds();
};

void SimControllerTest::shouldAnswerEveryRequestOfTheDefaultScene_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("answer");
    const auto value = [](const char *request, const char *text) {
        QTest::newRow(request) << QString::fromLatin1(request)
                               << QString::fromLatin1(request) + QLatin1Char(' ') + QString::fromLatin1(text);
    };
    const auto accepted = [](const char *request) {
        QTest::newRow(request) << QString::fromLatin1(request) << QStringLiteral("velmar2 ok");
    };
    value("velmar2 get status active", "none");
    value("velmar2 get tracking available", "yes");
    value("velmar2 get config is_changeable", "yes");
    accepted("velmar2 tracking start");
    accepted("velmar2 tracking stop");
    value("velmar2 get camera number_of_cameras", "4");
    value("velmar2 get camera camera c01", "sim 00028 idle");
    value("velmar2 get tracking room c01", "2000.000 0.000 2500.000 0.000000 0.500000 0.866025 1.000000 "
                                           "0.000000 0.000000 0.000000 0.866025 -0.500000");
    value("velmar2 get tracking has_room c01", "yes");
    value(
        "velmar2 get tracking extra_rotation",
        "1.00000000 0.00000000 0.00000000 0.00000000 1.00000000 0.00000000 0.00000000 0.00000000 1.00000000");
    value("velmar2 get tracking extra_translation", "0.000 0.000 0.000");
    value("velmar2 get tracking extra_scaling", "1.00000");
    accepted("velmar2 set tracking extra_rotation 0.00000000 -1.00000000 0.00000000 1.00000000 0.00000000 "
             "0.00000000 0.00000000 0.00000000 1.00000000");
    accepted("velmar2 set tracking extra_translation 1.000 -2.500 3.125");
    accepted("velmar2 set tracking extra_scaling 1.02500");
    value("velmar2 get tracking reference", "none");
    accepted("velmar2 set tracking reference none");
    accepted("velmar2 set tracking reference body b01");
    value("velmar2 get roomcal coordinate_type", "normal");
    value("velmar2 get roomcal last_coordinate_type", "none");
    value("velmar2 get roomcal number_of_available_coordinate_types", "5");
    value("velmar2 get roomcal available_coordinate_type t01", "normal");
    value("velmar2 get roomcal available_coordinate_type t02", "powerwall");
    value("velmar2 get roomcal available_coordinate_type t03", "powerwall_standing");
    value("velmar2 get roomcal available_coordinate_type t04", "mid_camera");
    value("velmar2 get roomcal available_coordinate_type t05", "first_camera");
    value("velmar2 get roomcal available_coordinate_type_desc normal", "\"Normal (z axis up)\"");
    accepted("velmar2 set roomcal type angle_no_wand");
    value("velmar2 get roomcal angle", "278.000 83.000 163.000");
    accepted("velmar2 set roomcal angle 192.000 57.000 112.500");
    value("velmar2 get roomcal angle_height", "55.000");
    accepted("velmar2 set roomcal angle_height 15.600");
    value("velmar2 get roomcal duration", "30.0");
    accepted("velmar2 set roomcal duration 5.0");
    accepted("velmar2 set roomcal coordinate_type powerwall");
    value("velmar2 get cal type_desc room", "\"room calibration\"");
    value("velmar2 get cal type_desc reflex_scan", "\"reflex scan\"");
    value("velmar2 get cal number_of_steps room", "1");
    value("velmar2 get cal number_of_steps reflex_scan", "1");
    value("velmar2 get cal step_pause room s01", "no");
    value("velmar2 get cal step_duration room s01", "30.000");
    accepted("velmar2 cal room start");
    accepted("velmar2 cal room stop");
    accepted("velmar2 cal reflex_scan start");
    value("velmar2 get status progress", "0.000000");
    value("velmar2 get status step_active", "none");
    value("velmar2 get status step_progress", "0 0.000000");
    value("velmar2 get status err", "0 \"\"");
    value("velmar2 get status camera_progress c01", "0.000");
    value("velmar2 get measurementtool available", "yes");
    value("velmar2 get measurementtool number_of_tools", "1");
    value("velmar2 get measurementtool tip_calibrated b01", "yes");
    value("velmar2 get measurementtool measurement_duration b01", "1.0");
    value("velmar2 get measurementtool measurement_tip_tolerance b01", "1.5");
}

void SimControllerTest::shouldAnswerEveryRequestOfTheDefaultScene()
{
    QFETCH(QString, request);
    QFETCH(QString, answer);
    SimController controller;
    QCOMPARE(ask(controller, request), answer);
}

void SimControllerTest::shouldRefuseWithAReadableError_data()
{
    QTest::addColumn<QString>("preparation");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char *name, const char *preparation, const char *request, const char *answer) {
        QTest::newRow(name) << QString::fromLatin1(preparation) << QString::fromLatin1(request)
                            << QString::fromLatin1(answer);
    };
    const char *const start = "velmar2 tracking start";
    const char *const calibrate = "velmar2 cal room start";
    row("empty", "", "", "velmar2 err 1 \"unknown command\"");
    row("other word", "", "hello", "velmar2 err 1 \"unknown command\"");
    row("unknown command", "", "velmar2 tracking pause", "velmar2 err 1 \"unknown command\"");
    row("one word too many", "", "velmar2 tracking start now", "velmar2 err 1 \"unknown command\"");
    row("unknown parameter", "", "velmar2 get tracking speed", "velmar2 err 2 \"unknown parameter\"");
    row("unknown setting", "", "velmar2 set tracking speed 1", "velmar2 err 2 \"unknown parameter\"");
    row("two blanks", "", "velmar2 get  status active", "velmar2 err 2 \"unknown parameter\"");
    row("trailing blank", "", "velmar2 get status active ", "velmar2 err 2 \"unknown parameter\"");
    row("camera without number", "", "velmar2 get camera camera c", "velmar2 err 2 \"unknown parameter\"");
    row("camera 0", "", "velmar2 get camera camera c00", "velmar2 err 4 \"no such camera\"");
    row("camera 5", "", "velmar2 get tracking room c05", "velmar2 err 4 \"no such camera\"");
    row("camera 5, has room", "", "velmar2 get tracking has_room c05", "velmar2 err 4 \"no such camera\"");
    row("camera 5, progress", "", "velmar2 get status camera_progress c05",
        "velmar2 err 4 \"no such camera\"");
    row("tool 2", "", "velmar2 get measurementtool tip_calibrated b02", "velmar2 err 4 \"no such tool\"");
    row("type 6", "", "velmar2 get roomcal available_coordinate_type t06",
        "velmar2 err 4 \"no such coordinate type\"");
    row("step 2", "", "velmar2 get cal step_pause room s02", "velmar2 err 4 \"no such step\"");
    row("not available", "sim available no", start, "velmar2 err 11 \"tracking not available\"");
    row("start while calibrating", calibrate, start, "velmar2 err 12 \"calibration is running\"");
    row("stop while calibrating", calibrate, "velmar2 tracking stop",
        "velmar2 err 12 \"calibration is running\"");
    row("calibrate twice", calibrate, calibrate, "velmar2 err 12 \"calibration is running\"");
    row("calibrate while measuring", start, calibrate, "velmar2 err 21 \"tracking is running\"");
    row("unknown calibration", "", "velmar2 cal body start", "velmar2 err 4 \"no such calibration\"");
    row("eight numbers", "", "velmar2 set tracking extra_rotation 1 0 0 0 1 0 0 0",
        "velmar2 err 3 \"bad value\"");
    row("sheared rotation", "", "velmar2 set tracking extra_rotation 1 0.1 0 0 1 0 0 0 1",
        "velmar2 err 3 \"bad value\"");
    row("mirrored rotation", "", "velmar2 set tracking extra_rotation 1 0 0 0 1 0 0 0 -1",
        "velmar2 err 3 \"bad value\"");
    row("not a number", "", "velmar2 set tracking extra_translation 1 2 x", "velmar2 err 3 \"bad value\"");
    row("nan", "", "velmar2 set tracking extra_translation 1 2 nan", "velmar2 err 3 \"bad value\"");
    row("decimal comma", "", "velmar2 set tracking extra_scaling 1,5", "velmar2 err 3 \"bad value\"");
    row("scaling 0", "", "velmar2 set tracking extra_scaling 0", "velmar2 err 3 \"bad value\"");
    row("scaling below 0", "", "velmar2 set tracking extra_scaling -1", "velmar2 err 3 \"bad value\"");
    row("unknown body", "", "velmar2 set tracking reference body b02", "velmar2 err 4 \"no such target\"");
    row("angle 0", "", "velmar2 set roomcal angle 278 0 163", "velmar2 err 3 \"bad value\"");
    row("duration below 1", "", "velmar2 set roomcal duration 0.9", "velmar2 err 3 \"bad value\"");
    row("unknown coordinate type", "", "velmar2 set roomcal coordinate_type upright",
        "velmar2 err 3 \"bad value\"");
    row("unsupported angle tool", "sim angletool supported no", "velmar2 set roomcal type angle_no_wand",
        "velmar2 err 3 \"bad value\"");
    row("locked rotation", "sim locked yes", "velmar2 set tracking extra_scaling 1",
        "velmar2 err 13 \"configuration is locked\"");
    row("locked calibration", "sim locked yes", calibrate, "velmar2 err 13 \"configuration is locked\"");
    row("nothing to accept", "", "velmar2 roomcal accept_new_calibration",
        "velmar2 err 31 \"no new calibration\"");
    row("measure while idle", "", "velmar2 measurementtool start_measurement b01",
        "velmar2 err 40 \"not measuring\"");
    row("measure with tool 2", start, "velmar2 measurementtool start_measurement b02",
        "velmar2 err 4 \"no such tool\"");
}

void SimControllerTest::shouldRefuseWithAReadableError()
{
    QFETCH(QString, preparation);
    QFETCH(QString, request);
    QFETCH(QString, answer);
    SimController controller;
    if (preparation.startsWith(QLatin1String("sim ")))
        tell(controller, preparation.toLatin1().constData());
    else if (!preparation.isEmpty())
        QCOMPARE(ask(controller, preparation), QStringLiteral("velmar2 ok"));
    QCOMPARE(ask(controller, request), answer);
}

void SimControllerTest::shouldNameTheFirstOfSeveralReasons_data()
{
    QTest::addColumn<QStringList>("preparations");
    QTest::addColumn<QString>("request");
    QTest::addColumn<int>("code");
    const auto row = [](const char *name, const QStringList &preparations, const char *request, int code) {
        QTest::newRow(name) << preparations << QString::fromLatin1(request) << code;
    };
    const QString measuring = QStringLiteral("velmar2 tracking start");
    const QString calibrating = QStringLiteral("velmar2 cal room start");
    const QString unavailable = QStringLiteral("sim available no");
    const QString locked = QStringLiteral("sim locked yes");
    const QString strict = QStringLiteral("sim strict on");
    const char *const start = "velmar2 tracking start";
    const char *const calibrate = "velmar2 cal room start";
    const char *const accept = "velmar2 roomcal accept_new_calibration";
    row("start, not available and calibrating", {calibrating, unavailable}, start, 11);
    row("calibrate, unknown and not available", {unavailable}, "velmar2 cal body start", 4);
    row("calibrate, not available and calibrating", {calibrating, unavailable}, calibrate, 11);
    row("calibrate, not available and measuring", {measuring, unavailable}, calibrate, 11);
    row("calibrate, calibrating and locked", {calibrating, locked}, calibrate, 12);
    row("calibrate, measuring and locked", {measuring, locked}, calibrate, 21);
    row("accept, calibrating and nothing there", {calibrating}, accept, 12);
    row("accept, nothing there and locked", {locked}, accept, 31);
    for (const char *setting : {"extra_rotation 1", "extra_translation 1", "extra_scaling 0",
                                "reference none", "reference body b07"})
        row(setting, {measuring, strict, locked},
            qPrintable(QStringLiteral("velmar2 set tracking ") + QString::fromLatin1(setting)), 13);
}

void SimControllerTest::shouldNameTheFirstOfSeveralReasons()
{
    // GIVEN
    QFETCH(QStringList, preparations);
    QFETCH(QString, request);
    QFETCH(int, code);
    SimController controller;
    for (const QString &line : qAsConst(preparations)) {
        if (line.startsWith(QLatin1String("sim ")))
            tell(controller, line.toLatin1().constData());
        else
            QCOMPARE(ask(controller, line), QStringLiteral("velmar2 ok"));
    }
    // WHEN
    const QString answer = ask(controller, request);
    // THEN
    QCOMPARE(answer.section(QLatin1Char(' '), 0, 2), QStringLiteral("velmar2 err %1").arg(code));
}

void SimControllerTest::shouldTakeCoordinateSettingsWhileMeasuringWithANote_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("note");
    const auto row = [](const char *name, const char *setting, const char *note) {
        QTest::newRow(name) << QString::fromLatin1(setting) << QString::fromLatin1(note);
    };
    row("rotation", "extra_rotation 0 -1 0 1 0 0 0 0 1", "tracking extra_rotation was set while measuring");
    row("translation", "extra_translation 1 2 3", "tracking extra_translation was set while measuring");
    row("scaling", "extra_scaling 2", "tracking extra_scaling was set while measuring");
    row("reference", "reference body b01", "tracking reference was set while measuring");
    row("no reference", "reference none", "tracking reference was set while measuring");
}

void SimControllerTest::shouldTakeCoordinateSettingsWhileMeasuringWithANote()
{
    QFETCH(QString, setting);
    QFETCH(QString, note);
    const QString request = QStringLiteral("velmar2 set tracking ") + setting;
    SimController controller;
    QCOMPARE(ask(controller, request), QStringLiteral("velmar2 ok"));
    QVERIFY(controller.takeNotes().empty());
    ask(controller, QStringLiteral("velmar2 tracking start"));
    QCOMPARE(ask(controller, request), QStringLiteral("velmar2 ok"));
    QCOMPARE(controller.takeNotes(), std::vector<std::string>{note.toStdString()});
    tell(controller, "sim strict on");
    QCOMPARE(ask(controller, request), QStringLiteral("velmar2 err 20 \"stop tracking first\""));
    QVERIFY(controller.takeNotes().empty());
}

void SimControllerTest::shouldRefuseEverySettingWhileLocked_data()
{
    QTest::addColumn<QString>("setting");
    for (const char *setting :
         {"tracking extra_rotation 0 -1 0 1 0 0 0 0 1", "tracking extra_translation 1 2 3",
          "tracking extra_scaling 2", "tracking reference body b01", "roomcal type angle_no_wand",
          "roomcal angle 1 2 3", "roomcal angle_height 4", "roomcal duration 5",
          "roomcal coordinate_type powerwall"})
        QTest::newRow(setting) << QString::fromLatin1(setting);
}

void SimControllerTest::shouldRefuseEverySettingWhileLocked()
{
    QFETCH(QString, setting);
    SimController controller;
    const QString question = QStringLiteral("velmar2 get ") + setting.section(QLatin1Char(' '), 0, 1);
    const QString before = ask(controller, question);
    tell(controller, "sim locked yes");
    const QString request = QStringLiteral("velmar2 set ") + setting;
    QCOMPARE(ask(controller, request), QStringLiteral("velmar2 err 13 \"configuration is locked\""));
    QCOMPARE(ask(controller, question), before);
    tell(controller, "sim locked no");
    QCOMPARE(ask(controller, request), QStringLiteral("velmar2 ok"));
    QVERIFY(ask(controller, question) != before);
}

void SimControllerTest::shouldTellTheNominalPointsOfTheWorkpiece()
{
    SimController controller;
    QStringList points;
    for (int number = 1; number <= 6; ++number)
        points << QString::fromStdString(
            SimScript(controller).run("sim get point " + std::to_string(number)));
    const QStringList expected = {
        QStringLiteral("sim get point 1 0.000 0.000 0.000 \"front left\""),
        QStringLiteral("sim get point 2 620.000 0.000 0.000 \"front right\""),
        QStringLiteral("sim get point 3 0.000 410.000 0.000 \"rear left\""),
        QStringLiteral("sim get point 4 620.000 380.000 60.000 \"rear right\""),
        QStringLiteral("sim get point 5 150.000 120.000 340.000 \"top of the post\""),
        QStringLiteral("sim get point 6 480.000 90.000 130.000 \"bore\"")};
    QCOMPARE(points, expected);
}

void SimControllerTest::shouldKeepTheWordsAtTheirPlaces()
{
    SimController controller;
    tell(controller, "sim cal room pause 1 5 4.5");
    const auto words = [&controller](const char *request) {
        return ask(controller, QString::fromLatin1(request)).split(QLatin1Char(' '));
    };
    const QStringList pause = words("velmar2 get cal step_pause room s01");
    QCOMPARE(pause.value(6), QStringLiteral("yes"));
    QCOMPARE(pause.value(7), QStringLiteral("5"));
    QCOMPARE(words("velmar2 get camera camera c01").value(6), QStringLiteral("00028"));
    QCOMPARE(words("velmar2 get status camera_progress c01").value(5), QStringLiteral("0.000"));
}

void SimControllerTest::shouldNeverAnswerMoreThanABufferHolds()
{
    SimController controller;
    for (const char *request : {"velmar2 get tracking room c01", "velmar2 get tracking extra_rotation",
                                "velmar2 get roomcal available_coordinate_type_desc powerwall_standing"})
        QVERIFY(ask(controller, QString::fromLatin1(request)).size() <= 199);
}

ROOM_TEST_CLASS(SimControllerTest)
#include "SimControllerTest.moc"
