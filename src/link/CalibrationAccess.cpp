#include "CalibrationAccess.h"

#include "AngleToolCalls.h"
#include "ControllerCall.h"
#include "SharedCalls.h"

CalibrationAccess::CalibrationAccess(IOManager *commands, const BackendVersions *versions)
    : m_channel(commands, versions)
{
}

QByteArray CalibrationAccess::description(const QByteArray &kind) const
{
    return m_channel.silently()
        .text([&kind](IOManager &host, char *answer) {
            return host.getParameter(answer, "cal type_desc %s", kind.constData());
        })
        .value_or(QByteArray());
}

int CalibrationAccess::steps(const QByteArray &kind) const
{
    return m_channel.silently()
        .value<int>([&kind](IOManager &host, int *value) {
            return host.getParameterInt(value, "cal number_of_steps %s", kind.constData());
        })
        .value_or(1);
}

int CalibrationAccess::announcedPause(const QByteArray &kind, int step) const
{
    const auto value = m_channel.silently().text([&kind, step](IOManager &host, char *answer) {
        return host.getParameter(answer, "cal step_pause %s s%02d", kind.constData(), step);
    });
    return CalibrationAnswers::announcedPause(value.value_or(QByteArray()));
}

std::optional<int> CalibrationAccess::stepPause(const QByteArray &kind, int step) const
{
    return CalibrationAnswers::stepPause(
        m_channel.silently().answer([&kind, step](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 get cal step_pause %s s%02d", kind.constData(), step);
        }));
}

Activity CalibrationAccess::activity() const
{
    return SharedCalls::activity(m_channel.silently());
}

void CalibrationAccess::stopTracking() const
{
    SharedCalls::stopTracking(m_channel.silently());
}

bool CalibrationAccess::start(const QByteArray &kind) const
{
    return m_channel.silently().isConfirmed([&kind](IOManager &host, char *answer) {
        return host.sendCommand(answer, "velmar2 cal %s start", kind.constData());
    });
}

void CalibrationAccess::stop(const QByteArray &kind) const
{
    m_channel.silently().isConfirmed([&kind](IOManager &host, char *answer) {
        return host.sendCommand(answer, "velmar2 cal %s stop", kind.constData());
    });
}

std::optional<double> CalibrationAccess::progress() const
{
    return m_channel.silently().value<double>(
        [](IOManager &host, double *value) { return host.getParameterDouble(value, "status progress"); });
}

CalibrationStep CalibrationAccess::activeStep() const
{
    const auto value = m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "status step_active"); });
    return value ? CalibrationAnswers::step(*value) : CalibrationStep::Failed;
}

std::optional<StepProgress> CalibrationAccess::stepProgress() const
{
    const auto value = m_channel.silently().text(
        [](IOManager &host, char *answer) { return host.getParameter(answer, "status step_progress"); });
    return value ? CalibrationAnswers::stepProgress(*value) : std::nullopt;
}

std::optional<double> CalibrationAccess::stepDuration(const QByteArray &kind, int step) const
{
    const auto value = m_channel.silently().text([&kind, step](IOManager &host, char *answer) {
        return host.getParameter(answer, "cal step_duration %s s%02d", kind.constData(), step);
    });
    return value ? CalibrationAnswers::leadingReal(*value) : std::nullopt;
}

QByteArray CalibrationAccess::error() const
{
    return CalibrationAnswers::quotedText(m_channel.silently().answer(
        [](IOManager &host, char *answer) { return host.sendCommand(answer, "velmar2 get status err"); }));
}

void CalibrationAccess::clearError() const
{
    const ControllerChannel channel = m_channel;
    SharedCalls::startTracking(channel.silently());
    SharedCalls::stopTracking(channel.silently());
}

std::optional<int> CalibrationAccess::numberOfCameras() const
{
    return SharedCalls::numberOfCameras(m_channel.reporting("Error: Unable to get the number of cameras"));
}

QByteArray CalibrationAccess::cameraSerial(int camera) const
{
    return CalibrationAnswers::cameraSerial(
        m_channel.silently().answer([camera](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 get camera camera c%02d", camera);
        }));
}

float CalibrationAccess::cameraProgress(int camera) const
{
    return CalibrationAnswers::cameraProgress(
        m_channel.silently().answer([camera](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 get status camera_progress c%02d", camera);
        }));
}

AngleToolSettings CalibrationAccess::angleToolSettings() const
{
    const ControllerChannel channel = m_channel;
    AngleToolSettings settings;
    settings.coordinateTypes = AngleToolCalls::coordinateTypes(channel);
    settings.distances = AngleToolCalls::distances(channel);
    settings.height = AngleToolCalls::height(channel);
    settings.coordinateType = AngleToolCalls::coordinateType(channel);
    return settings;
}

bool CalibrationAccess::chooseAngleTool() const
{
    return m_channel.reporting("Error: Cannot set room calibration type to only angle tool")
        .succeeds([](IOManager &host) { return host.setParameter("roomcal type angle_no_wand"); });
}

double CalibrationAccess::setUpAngleTool(const AngleToolSetup &setup) const
{
    const ControllerChannel channel = m_channel;
    AngleToolCalls::setDistances(channel, setup.distances);
    AngleToolCalls::setHeight(channel, setup.height);
    const double oldDuration = AngleToolCalls::roomDuration(channel);
    AngleToolCalls::shortenRoomDuration(channel);
    AngleToolCalls::setCoordinateType(channel, setup.coordinateType);
    channel.note("calibration started");
    return oldDuration;
}

bool CalibrationAccess::acceptNewCalibration() const
{
    return m_channel.reporting("Unable to set new calibration to Controller")
        .isConfirmed([](IOManager &host, char *answer) {
            return host.sendCommand(answer, "velmar2 roomcal accept_new_calibration");
        });
}

void CalibrationAccess::concludeAngleTool(double durationSeconds) const
{
    const ControllerChannel channel = m_channel;
    AngleToolCalls::restartTracking(channel);
    AngleToolCalls::restoreRoomDuration(channel, durationSeconds);
}

void CalibrationAccess::abandonAngleTool(double durationSeconds) const
{
    const ControllerChannel channel = m_channel;
    channel.note("room adjustment according angle tool canceled");
    AngleToolCalls::restoreRoomDuration(channel, durationSeconds);
    AngleToolCalls::restartTracking(channel);
}
