#include "BenchSession.h"

#include "BenchOptions.h"
#include "LocalController.h"
#include "RemoteController.h"
#include "Scenario.h"
#include "ScenarioFile.h"
#include "SimAnswer.h"
#include "SimController.h"

#include <QCoreApplication>

namespace
{

constexpr double rowDistanceMm = 250.0;

/// As many cameras: those of the room, and above them further rows of the same. A room without cameras gets
/// the standard ones.
void setCameraCount(SimRoom &room, int count)
{
    const std::vector<SimCamera> known = room.cameras.empty() ? SimRoom::standard().cameras : room.cameras;
    room.cameras.clear();
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const std::size_t row = i / known.size();
        room.cameras.push_back(known[i % known.size()]);
        room.cameras.back().pose.position.z += rowDistanceMm * static_cast<double>(row);
    }
}

} // namespace

BenchSession::BenchSession() = default;
BenchSession::~BenchSession() = default;

std::unique_ptr<BenchSession> BenchSession::open(const BenchOptions &options, QString *error)
{
    std::unique_ptr<BenchSession> session(new BenchSession);
    if (!session->makeLink(options, error))
        return nullptr;
    session->m_channel = std::make_unique<BenchIOManager>(*session->m_link);
    if (!session->sendStartLines(options, error))
        return nullptr;
    return session;
}

bool BenchSession::makeLink(const BenchOptions &options, QString *error)
{
    return options.controller.isEmpty() ? makeLocal(options, error) : makeRemote(options.controller, error);
}

bool BenchSession::makeLocal(const BenchOptions &options, QString *error)
{
    SimMachine machine;
    if (!options.scenario.isEmpty()) {
        std::string reason;
        const QString file = ScenarioFile::find(options.scenario, QCoreApplication::applicationDirPath());
        const std::optional<Scenario> scenario = Scenario::load(file.toStdString(), &reason);
        if (!scenario) {
            *error = QString::fromStdString(reason);
            return false;
        }
        machine = scenario->machine;
        m_faults = scenario->faults;
    }
    if (options.cameras)
        setCameraCount(machine.room, *options.cameras);
    m_controller = std::make_unique<SimController>(std::move(machine));
    m_link = std::make_unique<LocalController>(*m_controller);
    return true;
}

bool BenchSession::makeRemote(const QString &address, QString *error)
{
    const auto parts = RemoteController::parseAddress(address);
    if (!parts) {
        *error = QStringLiteral("--controller takes HOST:PORT, not %1.").arg(address);
        return false;
    }
    auto remote = std::make_unique<RemoteController>(parts->first, parts->second);
    if (!remote->open()) {
        *error = QStringLiteral("The controller at %1 cannot be reached: %2").arg(address, remote->failure());
        return false;
    }
    m_link = std::move(remote);
    return true;
}

bool BenchSession::sendStartLines(const BenchOptions &options, QString *error)
{
    for (const std::string &fault : m_faults)
        m_channel->control(fault);
    for (const QString &line : options.startLines) {
        const std::string text = line.toStdString();
        const bool isControl = line.startsWith(QLatin1String("sim "));
        const std::string answer = isControl ? m_channel->control(text) : m_link->ask(text).text;
        if (SimAnswer::isError(answer) || SimAnswer::isControlError(answer)) {
            *error = QStringLiteral("The controller does not do \"%1\": %2")
                         .arg(line, QString::fromStdString(answer));
            return false;
        }
    }
    return true;
}
