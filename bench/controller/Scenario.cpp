#include "Scenario.h"

#include "FaultPlan.h"
#include "ScenarioObject.h"
#include "SimAnswer.h"
#include "SimController.h"
#include "SimLimits.h"
#include "SimScript.h"
#include "SimText.h"
#include "TextFile.h"

#include <QJsonDocument>

namespace
{

constexpr int largestFile = 1000000;
constexpr int mostCameras = 99;
constexpr int mostTools = 16;
constexpr int mostDevices = 16;
constexpr int mostBodies = 50;
constexpr int mostButtons = 16;
constexpr double large = SimText::largestNumber;

void readExtra(ScenarioObject &object, SimExtra &extra)
{
    object.rotation("rotation", &extra.rotation);
    object.vector("translation", &extra.translation);
    object.number("scaling", 1e-3, 1e3, &extra.scaling);
}

void readVersion(ScenarioObject &object, SimState &state)
{
    const std::vector<double> version = object.numbers("version", 3);
    if (version.empty())
        return;
    state.versionMajor = static_cast<int>(version[0]);
    state.versionMinor = static_cast<int>(version[1]);
    state.versionThird = static_cast<int>(version[2]);
}

void readReference(ScenarioObject &object, SimState &state)
{
    int body = 0;
    object.count("reference", 0, mostBodies, &body);
    if (body > 0)
        state.reference = body - 1;
}

void readController(ScenarioObject &object, SimState &state)
{
    readReference(object, state);
    readVersion(object, state);
    bool locked = !state.changeable;
    object.truth("locked", &locked);
    state.changeable = !locked;
    object.truth("available", &state.available);
    object.truth("strict", &state.strict);
    object.truth("angleToolSupported", &state.angleToolSupported);
    object.object("extra", [&state](ScenarioObject &inner) { readExtra(inner, state.extra); });
}

void readClock(ScenarioObject &object, SimState &state)
{
    std::string clock = "real";
    object.text("clock", &clock);
    if (clock == "stepped")
        state.clock = SimClock::Stepped;
    else if (clock == "query")
        state.clock = SimClock::Query;
    else if (clock != "real")
        object.fail(QStringLiteral("clock"), QStringLiteral("expected real, stepped or query"));
}

// A word of an answer: the places of the words that follow it count on it.
void readWord(ScenarioObject &object, const char *key, std::string *target)
{
    object.text(key, target);
    if (target->empty() || target->find(' ') != std::string::npos)
        object.fail(QLatin1String(key), QStringLiteral("expected one word"));
}

SimCamera readCamera(ScenarioObject &object)
{
    SimCamera camera;
    readWord(object, "model", &camera.model);
    readWord(object, "serial", &camera.serial);
    object.pose("pose", &camera.pose);
    object.truth("room", &camera.hasRoom);
    object.number("rate", 0.0, 1000.0, &camera.progressRate);
    return camera;
}

SimTool readTool(ScenarioObject &object)
{
    SimTool tool;
    object.vector("tip", &tool.tip);
    object.rotation("orientation", &tool.orientation);
    object.number("tremor", 0.0, SimLimits::largestSigmaMm, &tool.tremorMm);
    object.number("noise", 0.0, SimLimits::largestSigmaMm, &tool.noiseMm);
    object.truth("tracked", &tool.tracked);
    object.truth("calibrated", &tool.tipCalibrated);
    object.number("duration", 0.0, SimLimits::longestDurationSeconds, &tool.durationSeconds);
    object.number("tolerance", 0.0, large, &tool.toleranceMm);
    object.truth("check", &tool.toleranceCheck);
    object.number("tipRadius", 0.0, 1000.0, &tool.tipRadiusMm);
    return tool;
}

SimDevice readDevice(ScenarioObject &object)
{
    SimDevice device;
    int buttons = static_cast<int>(device.buttons.size());
    int axes = static_cast<int>(device.joystick.size());
    object.pose("pose", &device.pose);
    object.truth("tracked", &device.tracked);
    object.count("buttons", 0, mostButtons, &buttons);
    object.count("joystick", 0, mostButtons, &axes);
    device.buttons.resize(static_cast<std::size_t>(buttons));
    device.joystick.resize(static_cast<std::size_t>(axes));
    return device;
}

SimBody readBody(ScenarioObject &object)
{
    SimBody body;
    object.pose("pose", &body.pose);
    object.truth("tracked", &body.tracked);
    return body;
}

SimPoint readPoint(ScenarioObject &object)
{
    SimPoint point;
    object.text("name", &point.name);
    object.vector("at", &point.nominal);
    return point;
}

void readAngleTool(ScenarioObject &object, SimAngleTool &tool)
{
    object.pose("pose", &tool.marker1);
    object.number("height", 0.0, large, &tool.heightMm);
    object.truth("visible", &tool.visible);
    const std::vector<double> distances = object.numbers("distances", 3);
    if (!distances.empty())
        tool.distancesMm = {distances[0], distances[1], distances[2]};
}

template <typename Element>
void readList(ScenarioObject &object, const char *key, int most, Element (*readOne)(ScenarioObject &),
              std::vector<Element> *target)
{
    std::vector<Element> list;
    if (object.list(key, most, [&](ScenarioObject &inner) { list.push_back(readOne(inner)); }))
        *target = list;
}

void readRoom(ScenarioObject &object, SimRoom &room)
{
    readList(object, "cameras", mostCameras, readCamera, &room.cameras);
    readList(object, "tools", mostTools, readTool, &room.tools);
    readList(object, "devices", mostDevices, readDevice, &room.devices);
    readList(object, "bodies", mostBodies, readBody, &room.bodies);
    object.object("angleTool", [&room](ScenarioObject &inner) { readAngleTool(inner, room.angleTool); });
    object.object("workpiece", [&room](ScenarioObject &inner) {
        inner.pose("pose", &room.workpiece.pose);
        readList(inner, "points", static_cast<int>(SimRoom::mostPoints), readPoint, &room.workpiece.points);
    });
}

// The bodies are known only after the controller.
void checkReference(ScenarioObject &object, SimMachine &machine)
{
    const auto count = static_cast<int>(machine.room.bodies.size());
    if (machine.state.reference.value_or(-1) < count)
        return;
    object.fail(QStringLiteral("controller.reference"), QStringLiteral("no such body"));
    machine.state.reference.reset();
}

// Runs the control lines of the scenario on the machine.
void runControls(ScenarioObject &object, SimMachine &machine)
{
    const std::vector<std::string> lines = object.texts("control");
    SimController controller(machine);
    SimScript script(controller);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string answer = script.run(lines[i]);
        if (SimAnswer::isControlError(answer))
            object.fail(QStringLiteral("control[%1]").arg(i),
                        QString::fromStdString(SimAnswer::controlReason(answer)));
    }
    machine = controller.machine();
}

std::vector<std::string> readFaults(ScenarioObject &object)
{
    std::vector<std::string> lines = object.texts("faults");
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (FaultPlan().run(lines[i], 0.0) != std::optional<std::string>(SimAnswer::controlOk))
            object.fail(QStringLiteral("faults[%1]").arg(i), QStringLiteral("not a fault line"));
    }
    return lines;
}

Scenario readScenario(const QJsonObject &json, ScenarioError &error)
{
    Scenario scenario;
    ScenarioObject object(json, QString(), error);
    int seed = 1;
    object.text("title", &scenario.title);
    object.text("description", &scenario.description);
    object.count("seed", 0, 2147483647, &seed);
    scenario.machine.random.seed(static_cast<std::uint64_t>(seed));
    readClock(object, scenario.machine.state);
    object.object("controller",
                  [&scenario](ScenarioObject &inner) { readController(inner, scenario.machine.state); });
    readRoom(object, scenario.machine.room);
    checkReference(object, scenario.machine);
    runControls(object, scenario.machine);
    scenario.faults = readFaults(object);
    object.refuseOtherKeys();
    return scenario;
}

QString lineOf(const QByteArray &json, int offset)
{
    return QStringLiteral("line %1").arg(json.left(offset).count('\n') + 1);
}

void report(std::string *error, const std::string &name, const ScenarioError &what)
{
    if (error != nullptr)
        *error = name + ": " + what.key.toStdString() + ": " + what.reason.toStdString();
}

} // namespace

std::optional<Scenario> Scenario::load(const std::string &file, std::string *error)
{
    QString reason;
    const auto content = readText(QString::fromStdString(file), largestFile + 1, &reason);
    if (!content) {
        report(error, file, {QStringLiteral("cannot be opened"), reason});
        return std::nullopt;
    }
    if (content->size() > largestFile) {
        report(error, file,
               {QStringLiteral("size"), QStringLiteral("larger than %1 bytes").arg(largestFile)});
        return std::nullopt;
    }
    return parse(content->toStdString(), file, error);
}

std::optional<Scenario> Scenario::parse(const std::string &json, const std::string &name, std::string *error)
{
    const QByteArray content = QByteArray::fromStdString(json);
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(content, &syntax);
    ScenarioError problem;
    if (syntax.error != QJsonParseError::NoError)
        problem = {lineOf(content, syntax.offset), syntax.errorString()};
    else if (!document.isObject())
        problem = {QStringLiteral("line 1"), QStringLiteral("expected an object")};
    if (problem.isSet()) {
        report(error, name, problem);
        return std::nullopt;
    }
    const Scenario scenario = readScenario(document.object(), problem);
    if (!problem.isSet())
        return scenario;
    report(error, name, problem);
    return std::nullopt;
}
