#include "LocalController.h"

#include "SimAnswer.h"
#include "SimController.h"
#include "SimLimits.h"
#include "SimText.h"

#include <cmath>

namespace
{

constexpr int tickMilliseconds = 16;
constexpr double frameSeconds = 1.0 / framesPerSecond;

// After a pause of the event loop the controller catches up, but never more than this.
constexpr double longestCatchUpSeconds = 0.5;

/// The time of "sim wait SECONDS" and "sim frames COUNT".
std::optional<double> timeToPass(const std::string &line)
{
    const auto words = SimText::words(line);
    if (words.size() != 3 || words[0] != "sim" || (words[1] != "wait" && words[1] != "frames"))
        return std::nullopt;
    const auto number = SimText::real(words[2]);
    const double seconds = number.value_or(-1.0) * (words[1] == "frames" ? frameSeconds : 1.0);
    return seconds >= 0.0 && seconds <= SimLimits::longestWaitSeconds ? std::optional<double>(seconds)
                                                                      : std::nullopt;
}

} // namespace

LocalController::LocalController(SimController &controller, QObject *parent)
    : ControllerLink(parent)
    , m_controller(controller)
    , m_script(controller)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &LocalController::tick);
    m_timer.start(tickMilliseconds);
    m_wallClock.start();
}

LinkAnswer LocalController::ask(const std::string &line)
{
    if (const std::optional<double> seconds = timeToPass(line)) {
        advance(*seconds);
        return {true, SimAnswer::controlOk};
    }
    const std::string answer =
        SimScript::isControlLine(line) ? m_script.run(line) : m_controller.answer(line);
    for (const std::string &note : m_controller.takeNotes())
        emit noted(QString::fromStdString(note));
    return {true, answer};
}

// Everything is handed out; who receives it picks the wanted kinds.
void LocalController::subscribe(const std::set<std::string> &) {}

double LocalController::time() const
{
    return m_controller.time();
}

QString LocalController::description() const
{
    return tr("simulated controller in this program");
}

void LocalController::frame()
{
    const std::vector<SimRecord> records = m_controller.frame();
    if (!records.empty())
        emit recordsArrived(records);
}

void LocalController::advance(double seconds)
{
    for (long left = std::lround(seconds * framesPerSecond); left > 0; --left)
        frame();
}

void LocalController::tick()
{
    const double elapsed = static_cast<double>(m_wallClock.nsecsElapsed()) * 1e-9;
    m_wallClock.restart();
    if (m_controller.clock() != SimClock::Real)
        return;
    m_owedSeconds += elapsed;
    if (m_owedSeconds > longestCatchUpSeconds) {
        m_controller.advance(m_owedSeconds - longestCatchUpSeconds);
        m_owedSeconds = longestCatchUpSeconds;
    }
    while (m_owedSeconds >= frameSeconds) {
        m_owedSeconds -= frameSeconds;
        frame();
    }
}
