#include "Scenario.h"
#include "BuiltFiles.h"
#include "SimController.h"
#include "TestRegistry.h"

#include <QDir>
#include <QtTest>

namespace
{

QString errorOf(const char *json)
{
    std::string error;
    const bool isRead = Scenario::parse(json, "room.json", &error).has_value();
    return isRead ? QStringLiteral("no error") : QString::fromStdString(error);
}

} // namespace

class ScenarioTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldReadEveryScenarioOfTheBench_data();
    void shouldReadEveryScenarioOfTheBench();
    void shouldKeepTheDefaultSceneForWhatIsMissing();
    void shouldTakeWhatTheFileSays();
    void shouldTakeEveryThingOfTheRoom();
    void shouldTakeTheStateOfTheController();
    void shouldTakeTheClock();
    void shouldTakeTheSeedBeforeTheControlLines();
    void shouldTakeABodyAsTheReference();
    void shouldNameFileKeyAndReason_data();
    void shouldNameFileKeyAndReason();
    void shouldNameAFileThatCannotBeOpened();
};

void ScenarioTest::shouldReadEveryScenarioOfTheBench_data()
{
    QTest::addColumn<QString>("file");
    const QDir folder(BuiltFiles::scenarios());
    const QStringList files = folder.entryList({QStringLiteral("*.json")});
    QVERIFY(files.size() >= 8);
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << folder.filePath(file);
}

void ScenarioTest::shouldReadEveryScenarioOfTheBench()
{
    QFETCH(QString, file);
    std::string error;
    const auto scenario = Scenario::load(file.toStdString(), &error);
    QVERIFY2(scenario.has_value(), error.c_str());
    QVERIFY(!scenario->title.empty());
    QVERIFY(!scenario->description.empty());
}

void ScenarioTest::shouldKeepTheDefaultSceneForWhatIsMissing()
{
    SimController standard;
    SimController empty(Scenario::parse("{}", "empty", nullptr)->machine);
    for (const char *line : {"velmar2 get tracking room c01", "velmar2 get measurementtool number_of_tools",
                             "velmar2 get roomcal angle", "velmar2 get tracking extra_rotation"})
        QCOMPARE(empty.answer(line), standard.answer(line));
}

void ScenarioTest::shouldTakeWhatTheFileSays()
{
    const auto scenario = Scenario::parse(R"({"controller": {"locked": true, "version": [1, 4, 2],
        "extra": {"rotation": [0, 0, 90], "translation": [1, 2, 3.5], "scaling": 1.25}},
        "cameras": [{"model": "eye", "serial": "7", "room": false}],
        "clock": "stepped", "control": ["sim tool 1 duration 0.5"], "faults": ["sim fault fail 1 status active"]})",
                                          "room", nullptr);
    QVERIFY(scenario.has_value());
    SimController controller(scenario->machine);
    QCOMPARE(controller.answer("velmar2 get config is_changeable"),
             std::string("velmar2 get config is_changeable no"));
    QCOMPARE(controller.answer("velmar2 get tracking extra_rotation"),
             std::string("velmar2 get tracking extra_rotation 0.00000000 -1.00000000 0.00000000 1.00000000 "
                         "0.00000000 0.00000000 0.00000000 0.00000000 1.00000000"));
    QCOMPARE(controller.answer("velmar2 get tracking extra_translation"),
             std::string("velmar2 get tracking extra_translation 1.000 2.000 3.500"));
    QCOMPARE(controller.answer("velmar2 get tracking extra_scaling"),
             std::string("velmar2 get tracking extra_scaling 1.25000"));
    QCOMPARE(controller.answer("velmar2 get camera camera c01"),
             std::string("velmar2 get camera camera c01 eye 7 idle"));
    QCOMPARE(controller.answer("velmar2 get tracking room c01"),
             std::string("velmar2 get tracking room c01 none"));
    QCOMPARE(controller.answer("velmar2 get measurementtool measurement_duration b01"),
             std::string("velmar2 get measurementtool measurement_duration b01 0.5"));
    QCOMPARE(controller.machine().state.versionMinor, 4);
    QCOMPARE(controller.clock(), SimClock::Stepped);
    QCOMPARE(scenario->faults.size(), std::size_t(1));
}

void ScenarioTest::shouldTakeEveryThingOfTheRoom()
{
    // GIVEN
    const char *json = R"({"cameras": [{"pose": [1, 2, 3, 0, 0, 90], "rate": 0.5}],
        "tools": [{"tip": [4, 5, 6], "orientation": [0, 0, 90], "tremor": 0.25, "noise": 0.5, "tracked": false,
                   "calibrated": false, "duration": 1.5, "tolerance": 2.5, "check": false, "tipRadius": 3.5}],
        "devices": [{"pose": [7, 8, 9, 0, 0, 90], "tracked": false, "buttons": 3, "joystick": 5}],
        "bodies": [{"pose": [10, 11, 12, 0, 0, 90], "tracked": false}],
        "angleTool": {"pose": [13, 14, 15, 0, 0, 90], "height": 16, "visible": false, "distances": [17, 18, 19]},
        "workpiece": {"pose": [20, 21, 22, 0, 0, 90], "points": [{"name": "edge", "at": [23, 24, 25]}]}})";
    // WHEN
    const auto scenario = Scenario::parse(json, "room", nullptr);
    // THEN
    QVERIFY(scenario.has_value());
    const SimRoom &room = scenario->machine.room;
    const std::pair<SimPose, SimVector> poses[] = {
        {room.cameras.at(0).pose, {1, 2, 3}},
        {room.devices.at(0).pose, {7, 8, 9}},
        {room.bodies.at(0).pose, {10, 11, 12}},
        {room.angleTool.marker1, {13, 14, 15}},
        {room.workpiece.pose, {20, 21, 22}},
        {{room.tools.at(0).tip, room.tools[0].orientation}, {4, 5, 6}}};
    for (const auto &[pose, position] : poses) {
        QVERIFY(length(pose.position - position) < 1e-9);
        QVERIFY(length(pose.rotation.column(0) - SimVector{0, 1, 0}) < 1e-9);
    }
    QCOMPARE(room.cameras[0].progressRate, 0.5);
    const SimTool &tool = room.tools[0];
    QCOMPARE((QList<double>{tool.tremorMm, tool.noiseMm, tool.durationSeconds, tool.toleranceMm,
                            tool.tipRadiusMm}),
             (QList<double>{0.25, 0.5, 1.5, 2.5, 3.5}));
    QVERIFY(!tool.tracked && !tool.tipCalibrated && !tool.toleranceCheck);
    QCOMPARE(room.devices[0].buttons.size(), std::size_t(3));
    QCOMPARE(room.devices[0].joystick.size(), std::size_t(5));
    QVERIFY(!room.devices[0].tracked && !room.bodies[0].tracked && !room.angleTool.visible);
    QCOMPARE(room.angleTool.heightMm, 16.0);
    QVERIFY(room.angleTool.distancesMm == (std::array<double, 3>{17, 18, 19}));
    QCOMPARE(room.workpiece.points.at(0).name, std::string("edge"));
    QVERIFY(length(room.workpiece.points[0].nominal - SimVector{23, 24, 25}) < 1e-9);
}

void ScenarioTest::shouldTakeTheStateOfTheController()
{
    // GIVEN
    const SimState standard;
    const char *json = R"({"title": "a room", "description": "of a test",
        "controller": {"version": [2, 4, 7], "available": false, "strict": true, "angleToolSupported": false}})";
    // WHEN
    const auto scenario = Scenario::parse(json, "room", nullptr);
    // THEN
    QVERIFY(scenario.has_value());
    QCOMPARE(scenario->title, std::string("a room"));
    QCOMPARE(scenario->description, std::string("of a test"));
    const SimState &state = scenario->machine.state;
    QVERIFY(standard.available && !standard.strict && standard.angleToolSupported);
    QVERIFY(!state.available && state.strict && !state.angleToolSupported && state.changeable);
    QCOMPARE((QList<int>{state.versionMajor, state.versionMinor, state.versionThird}), (QList<int>{2, 4, 7}));
}

void ScenarioTest::shouldTakeTheClock()
{
    const auto clockOf = [](const char *json) {
        return Scenario::parse(json, "room", nullptr)->machine.state.clock;
    };
    QCOMPARE(clockOf("{}"), SimClock::Real);
    QCOMPARE(clockOf(R"({"clock": "real"})"), SimClock::Real);
    QCOMPARE(clockOf(R"({"clock": "stepped"})"), SimClock::Stepped);
    QCOMPARE(clockOf(R"({"clock": "query"})"), SimClock::Query);
}

void ScenarioTest::shouldTakeTheSeedBeforeTheControlLines()
{
    const auto firstOf = [](const char *json) {
        return Scenario::parse(json, "room", nullptr)->machine.random.normal(1.0).x;
    };
    QCOMPARE(firstOf(R"({"seed": 5})"), SimRandom(5).normal(1.0).x);
    QCOMPARE(firstOf(R"({"seed": 5, "control": ["sim seed 6"]})"), SimRandom(6).normal(1.0).x);
    QCOMPARE(firstOf("{}"), SimRandom().normal(1.0).x);
}

void ScenarioTest::shouldTakeABodyAsTheReference()
{
    const auto scenario =
        Scenario::load(BuiltFiles::scenario("turned-room.json").toStdString(), nullptr); // says so of itself
    QVERIFY(scenario.has_value());
    SimController controller(scenario->machine);
    QCOMPARE(controller.answer("velmar2 get tracking reference"),
             std::string("velmar2 get tracking reference body b01"));
    SimController without(Scenario::parse(R"({"controller": {"reference": 0}})", "room", nullptr)->machine);
    QCOMPARE(without.answer("velmar2 get tracking reference"),
             std::string("velmar2 get tracking reference none"));
}

void ScenarioTest::shouldNameFileKeyAndReason_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const char *json, const char *error) {
        QTest::newRow(name) << QByteArray(json)
                            << QString::fromLatin1("room.json: ") + QString::fromLatin1(error);
    };
    row("syntax", "{\n\"title\" \"x\"}", "line 2: missing name separator");
    row("no object", "[]", "line 1: expected an object");
    row("unknown key", R"({"camera": []})", "camera: unknown key");
    row("unknown inner key", R"({"tools": [{}, {"tips": 1}]})", "tools[1].tips: unknown key");
    row("text for a number", R"({"tools": [{"noise": "0.1"}]})",
        "tools[0].noise: expected a number from 0 to 1000");
    row("number below the range", R"({"tools": [{"noise": -1}]})",
        "tools[0].noise: expected a number from 0 to 1000");
    row("five numbers", R"({"bodies": [{"pose": [1, 2, 3, 4, 5]}]})", "bodies[0].pose: expected 6 numbers");
    row("a text among numbers", R"({"workpiece": {"points": [{"at": [1, 2, "3"]}]}})",
        "workpiece.points[0].at: expected 3 numbers");
    row("a number for a truth", R"({"controller": {"locked": 1}})",
        "controller.locked: expected true or false");
    row("a list for an object", R"({"angleTool": []})", "angleTool: expected an object");
    row("an object for a list", R"({"cameras": {}})", "cameras: expected a list of at most 99 objects");
    row("a number in a list", R"({"cameras": [3]})", "cameras[0]: expected an object");
    row("too many buttons", R"({"devices": [{"buttons": 17}]})",
        "devices[0].buttons: expected a number from 0 to 16");
    row("half a button", R"({"devices": [{"buttons": 1.5}]})", "devices[0].buttons: expected a whole number");
    row("two words", R"({"cameras": [{"model": "big eye"}]})", "cameras[0].model: expected one word");
    row("line break", "{\"title\": \"a\\nb\"}", "title: expected a text of at most 100 plain characters");
    row("clock", R"({"clock": "fast"})", "clock: expected real, stepped or query");
    row("reference", R"({"controller": {"reference": 2}, "control": ["sim get tool 1"]})",
        "controller.reference: no such body");
    row("control line", R"({"control": ["sim seed 1", "sim tool 9 measure"]})",
        "control[1]: \"no such tool\"");
    row("one control line", R"({"control": "sim seed 1"})", "control: expected a list of texts");
    row("a number for a fault", R"({"faults": ["sim fault fail 1 x", 1]})",
        "faults: expected a list of texts");
    row("a text for a list of things", R"({"tools": "none"})",
        "tools: expected a list of at most 16 objects");
    row("fault line", R"({"faults": ["sim fault"]})", "faults[0]: not a fault line");
}

void ScenarioTest::shouldNameFileKeyAndReason()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QCOMPARE(errorOf(json.constData()), error);
}

void ScenarioTest::shouldNameAFileThatCannotBeOpened()
{
    std::string error;
    QVERIFY(!Scenario::load("no/such/room.json", &error));
    QVERIFY(error.find("no/such/room.json: cannot be opened: ") == 0);
}

ROOM_TEST_CLASS(ScenarioTest)
#include "ScenarioTest.moc"
