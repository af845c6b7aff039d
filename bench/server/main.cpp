#include "LineServer.h"
#include "LocalController.h"
#include "Scenario.h"
#include "ScenarioFile.h"
#include "SimAnswer.h"
#include "SimController.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <optional>

namespace
{

constexpr int badUsage = 2;
constexpr int cannotListen = 3;

int complain(const QString &text)
{
    std::fprintf(stderr, "velmar-controller: %s\n", qPrintable(text));
    return badUsage;
}

// NOLINTNEXTLINE(readability-function-size): the table of the options
void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("A simulated tracking controller: a request line in, an answer line out, over TCP."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions(
        {{QStringLiteral("listen"),
          QStringLiteral("Address to listen on; this computer only, if it is not given."),
          QStringLiteral("address"), QStringLiteral("127.0.0.1")},
         {QStringLiteral("port"), QStringLiteral("Port to listen on, 0 for any free one."),
          QStringLiteral("port"), QStringLiteral("5210")},
         {QStringLiteral("scenario"),
          QStringLiteral("Room and controller to begin with: a JSON file or a supplied scenario's name."),
          QStringLiteral("file")},
         {QStringLiteral("control"),
          QStringLiteral("Control line to run at the start, such as \"sim seed 7\"."),
          QStringLiteral("line")},
         {QStringLiteral("fault"),
          QStringLiteral("Fault to begin with, such as \"sim fault fail 2 velmar2 tracking start\"."),
          QStringLiteral("line")},
         {QStringLiteral("no-control"), QStringLiteral("Refuse control lines of clients.")},
         {QStringLiteral("connections"), QStringLiteral("Most connections at a time."),
          QStringLiteral("number"), QStringLiteral("16")},
         {QStringLiteral("idle"),
          QStringLiteral("Seconds without a line after which a connection makes room for another."),
          QStringLiteral("seconds"), QStringLiteral("60")}});
}

/// Runs the control and fault lines of the command line and the faults of the scenario; the first bad one is
/// handed back.
QString prepare(const QCommandLineParser &parser, const Scenario &scenario, LocalController &controller,
                LineServer &server)
{
    const QStringList controls = parser.values(QStringLiteral("control"));
    for (const QString &line : controls) {
        const std::string answer = controller.ask(line.toStdString()).text;
        if (answer != SimAnswer::controlOk)
            return line + QStringLiteral(": ") + QString::fromStdString(answer);
    }
    std::vector<std::string> faults = scenario.faults;
    const QStringList more = parser.values(QStringLiteral("fault"));
    for (const QString &line : more)
        faults.push_back(line.toStdString());
    for (const std::string &line : faults) {
        if (server.faults().run(line, 0.0) != std::optional<std::string>(SimAnswer::controlOk))
            return QStringLiteral("not a fault line: ") + QString::fromStdString(line);
    }
    return QString();
}

/// Where to listen, and for how many; nothing when the command line says it badly.
struct Door {
    QHostAddress address;
    quint16 port = 0;
    int connections = 0;
    int idleSeconds = 0;
};

std::optional<Door> doorOf(const QCommandLineParser &parser)
{
    bool isPort = false;
    bool isIdleTime = false;
    Door door;
    door.address = QHostAddress(parser.value(QStringLiteral("listen")));
    door.port = parser.value(QStringLiteral("port")).toUShort(&isPort);
    door.connections = parser.value(QStringLiteral("connections")).toInt();
    door.idleSeconds = parser.value(QStringLiteral("idle")).toInt(&isIdleTime);
    const bool isGood =
        isPort && !door.address.isNull() && door.connections > 0 && isIdleTime && door.idleSeconds >= 0;
    return isGood ? std::optional<Door>(door) : std::nullopt;
}

/// The scenario of the command line, or the default scene; nothing after an error.
std::optional<Scenario> scenarioOf(const QCommandLineParser &parser, std::string *error)
{
    const QString wanted = parser.value(QStringLiteral("scenario"));
    if (wanted.isEmpty())
        return Scenario();
    const QString file = ScenarioFile::find(wanted, QCoreApplication::applicationDirPath());
    return Scenario::load(file.toStdString(), error);
}

int serve(const QCommandLineParser &parser, const Door &door, const Scenario &scenario)
{
    SimController controller(scenario.machine);
    LocalController link(controller);
    LineServer server(link);
    server.setControlAllowed(!parser.isSet(QStringLiteral("no-control")));
    server.setLargestConnectionCount(door.connections);
    server.setIdleTime(std::chrono::seconds(door.idleSeconds));
    QObject::connect(&server, &LineServer::noted, [](const QString &text) { complain(text); });
    const QString problem = prepare(parser, scenario, link, server);
    if (!problem.isEmpty())
        return complain(problem);
    if (!server.listen(door.address, door.port)) {
        complain(server.errorString());
        return cannotListen;
    }
    std::printf("listening on %s:%d\n", qPrintable(door.address.toString()), server.port());
    std::fflush(stdout);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velmar-controller"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ROOM_VERSION));
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);
    const std::optional<Door> door = doorOf(parser);
    if (!door)
        return complain(QStringLiteral("bad address, port, number of connections or idle time"));
    std::string error;
    const std::optional<Scenario> scenario = scenarioOf(parser, &error);
    return scenario ? serve(parser, *door, *scenario) : complain(QString::fromStdString(error));
}
