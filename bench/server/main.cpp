#include "LineServer.h"
#include "LocalController.h"
#include "Scenario.h"
#include "ScenarioFile.h"
#include "SimController.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace
{

constexpr int badUsage = 2;
constexpr int cannotListen = 3;

int complain(const QString &text)
{
    std::fprintf(stderr, "velmar-controller: %s\n", qPrintable(text));
    return badUsage;
}

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
          QStringLiteral("number"), QStringLiteral("16")}});
}

/// Runs the control and fault lines of the command line and the faults of the scenario; the first bad one is
/// handed back.
QString prepare(const QCommandLineParser &parser, const Scenario &scenario, LocalController &controller,
                LineServer &server)
{
    const QStringList controls = parser.values(QStringLiteral("control"));
    for (const QString &line : controls) {
        const std::string answer = controller.ask(line.toStdString()).text;
        if (answer != "sim ok")
            return line + QStringLiteral(": ") + QString::fromStdString(answer);
    }
    std::vector<std::string> faults = scenario.faults;
    const QStringList more = parser.values(QStringLiteral("fault"));
    for (const QString &line : more)
        faults.push_back(line.toStdString());
    for (const std::string &line : faults) {
        if (server.faults().run(line, 0.0) != std::optional<std::string>("sim ok"))
            return QStringLiteral("not a fault line: ") + QString::fromStdString(line);
    }
    return QString();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velmar-controller"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ROOM_VERSION));
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);

    bool isPort = false;
    const quint16 port = parser.value(QStringLiteral("port")).toUShort(&isPort);
    const int connections = parser.value(QStringLiteral("connections")).toInt();
    const QHostAddress address(parser.value(QStringLiteral("listen")));
    if (!isPort || address.isNull() || connections < 1)
        return complain(QStringLiteral("bad address, port or number of connections"));

    Scenario scenario;
    if (parser.isSet(QStringLiteral("scenario"))) {
        std::string error;
        const QString file = ScenarioFile::find(parser.value(QStringLiteral("scenario")),
                                                QCoreApplication::applicationDirPath());
        const auto loaded = Scenario::load(file.toStdString(), &error);
        if (!loaded)
            return complain(QString::fromStdString(error));
        scenario = *loaded;
    }

    SimController controller(scenario.machine);
    LocalController link(controller);
    LineServer server(link);
    server.setControlAllowed(!parser.isSet(QStringLiteral("no-control")));
    server.setLargestConnectionCount(connections);
    const QString problem = prepare(parser, scenario, link, server);
    if (!problem.isEmpty())
        return complain(problem);
    if (!server.listen(address, port)) {
        complain(server.errorString());
        return cannotListen;
    }
    std::printf("listening on %s:%d\n", qPrintable(address.toString()), server.port());
    std::fflush(stdout);
    return QCoreApplication::exec();
}
