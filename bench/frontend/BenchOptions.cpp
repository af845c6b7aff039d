#include "BenchOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <array>

namespace
{

constexpr int mostCameras = 50;

struct OptionText {
    const char *name;
    const char *value; ///< null for a switch
    const char *description;
};

constexpr std::array<OptionText, 20> texts = {{
    {"plugin", "FILE",
     "The module's shared library; by default it is looked for beside the bench and where it is installed."},
    {"controller", "HOST:PORT", "Use the controller at that address instead of one in this process."},
    {"scenario", "FILE",
     "Start the controller of this process from a scenario file or a supplied scenario's name."},
    {"cameras", "N", "Number of cameras of the controller of this process."},
    {"interface-version", "M.m[.p]", "Interface version of the controller."},
    {"backend-name", "NAME", "Name of the backend that the module is told."},
    {"observer", nullptr, "Load the module in observer mode."},
    {"locked", nullptr, "The configuration may not be changed."},
    {"unavailable", nullptr, "Tracking is not available."},
    {"strict", nullptr, "The controller refuses settings while it measures."},
    {"extra-rotation", "\"r1 .. r9\"", "Extra rotation at the start, row by row."},
    {"extra-translation", "\"x y z\"", "Extra translation at the start, mm."},
    {"extra-scaling", "s", "Extra scaling at the start."},
    {"seed", "N", "Seed of everything random."},
    {"fault", "\"LINE\"", "A fault, such as \"fail 3 status active\"; can be given again."},
    {"control", "\"LINE\"", "Any control line, such as \"tool 1 tremor 2\"; can be given again."},
    {"script", "FILE",
     "Run the lines of a script when the window is open; the first that fails ends the bench."},
    {"demo", "DIR", "Do the main job with real keys and clicks, leave pictures in DIR, and end."},
    {"language", "CODE", "Language of the windows, such as de; English without it."},
    {"log", "FILE",
     "Write the conversation with the controller there at the end, its last 20,000 calls at most."},
}};

void setUp(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "A small front-end with a simulated tracking controller for the room adjustment module."));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const OptionText &text : texts) {
        const QString name = QLatin1String(text.name);
        if (text.value == nullptr)
            parser.addOption({name, QLatin1String(text.description)});
        else
            parser.addOption({name, QLatin1String(text.description), QLatin1String(text.value)});
    }
}

/// "1.24" and "1.24.0" as "1 24 -1" and "1 24 0"; empty when it is neither.
QString versionWords(const QString &version)
{
    const QStringList parts = version.split(QLatin1Char('.'));
    if (parts.size() < 2 || parts.size() > 3)
        return {};
    for (const QString &part : parts) {
        bool isNumber = false;
        part.toUInt(&isNumber);
        if (!isNumber)
            return {};
    }
    return (parts + QStringList(QStringLiteral("-1"))).mid(0, 3).join(QLatin1Char(' '));
}

class Reader
{
public:
    explicit Reader(const QCommandLineParser &parser)
        : m_parser(parser)
    {
    }

    BenchOptions options()
    {
        m_options.plugin = value("plugin");
        m_options.controller = value("controller");
        m_options.scenario = value("scenario");
        m_options.script = value("script");
        m_options.demoFolder = value("demo");
        m_options.language = value("language");
        m_options.logFile = value("log");
        m_options.backendName = value("backend-name");
        m_options.observerMode = isSet("observer");
        readCameras();
        readStartLines();
        checkTogether();
        return m_options;
    }

    QString error() const { return m_error; }

private:
    bool isSet(const char *name) const { return m_parser.isSet(QLatin1String(name)); }
    QString value(const char *name) const { return m_parser.value(QLatin1String(name)); }

    void readCameras()
    {
        if (!isSet("cameras"))
            return;
        bool isNumber = false;
        const int count = value("cameras").toInt(&isNumber);
        if (!isNumber || count < 0 || count > mostCameras)
            m_error = QStringLiteral("--cameras takes a number from 0 to %1.").arg(mostCameras);
        m_options.cameras = count;
    }

    void readStartLines()
    {
        addLine("seed", QStringLiteral("sim seed %1"));
        if (isSet("interface-version")) {
            const QString words = versionWords(value("interface-version"));
            if (words.isEmpty())
                m_error = QStringLiteral(
                    "--interface-version takes two or three numbers with points, such as 1.24.");
            m_options.startLines << QStringLiteral("sim version ") + words;
        }
        addLine("extra-rotation", QStringLiteral("velmar2 set tracking extra_rotation %1"));
        addLine("extra-translation", QStringLiteral("velmar2 set tracking extra_translation %1"));
        addLine("extra-scaling", QStringLiteral("velmar2 set tracking extra_scaling %1"));
        addSwitch("strict", QStringLiteral("sim strict yes"));
        addSwitch("locked", QStringLiteral("sim locked yes"));
        addSwitch("unavailable", QStringLiteral("sim available no"));
        addControlLines("control", QStringLiteral("sim "));
        addControlLines("fault", QStringLiteral("sim fault "));
    }

    void addLine(const char *name, const QString &line)
    {
        const auto values = m_parser.values(QLatin1String(name));
        for (const QString &given : values)
            m_options.startLines << line.arg(given.simplified());
    }

    /// The lines may begin with the lead or leave it out.
    void addControlLines(const char *name, const QString &lead)
    {
        const auto values = m_parser.values(QLatin1String(name));
        for (const QString &given : values)
            m_options.startLines << (given.startsWith(lead) ? given : lead + given);
    }

    void addSwitch(const char *name, const QString &line)
    {
        if (isSet(name))
            m_options.startLines << line;
    }

    void checkTogether()
    {
        if (!m_options.controller.isEmpty() && (isSet("scenario") || isSet("cameras")))
            m_error = QStringLiteral("--scenario and --cameras are for the controller of this process; "
                                     "with --controller give them to velmar-controller.");
    }

    const QCommandLineParser &m_parser;
    BenchOptions m_options;
    QString m_error;
};

} // namespace

std::optional<BenchOptions> BenchOptions::read(const QStringList &arguments, QString *error)
{
    QCommandLineParser parser;
    setUp(parser);
    if (!parser.parse(arguments)) {
        *error = parser.errorText();
        return std::nullopt;
    }
    if (!parser.positionalArguments().isEmpty()) {
        *error = QStringLiteral("%1 is no option.").arg(parser.positionalArguments().constFirst());
        return std::nullopt;
    }
    BenchOptions explained;
    explained.isHelpWanted = parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all"));
    explained.isVersionWanted = parser.isSet(QStringLiteral("version"));
    if (explained.isHelpWanted || explained.isVersionWanted)
        return explained;
    Reader reader(parser);
    const BenchOptions options = reader.options();
    *error = reader.error();
    return error->isEmpty() ? std::optional<BenchOptions>(options) : std::nullopt;
}

QString BenchOptions::help()
{
    QCommandLineParser parser;
    setUp(parser);
    return parser.helpText();
}

QString BenchOptions::version()
{
    return QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion() +
           QLatin1Char('\n');
}
