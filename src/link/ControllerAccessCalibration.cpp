#include "ControllerAccess.h"

#include "ControllerCall.h"
#include "IOManager.h"

// The operations of a running calibration: starting it, following it, ending it.

QByteArray ControllerAccess::calibrationDescription(const QByteArray &kind) const
{
    return ControllerCall::text(m_commands,
                                [&kind](IOManager &channel, char *answer) {
                                    return channel.getParameter(answer, "cal type_desc %s", kind.constData());
                                })
        .value_or(QByteArray());
}

int ControllerAccess::calibrationSteps(const QByteArray &kind) const
{
    return ControllerCall::value<int>(m_commands,
                                      [&kind](IOManager &channel, int *value) {
                                          return channel.getParameterInt(value, "cal number_of_steps %s",
                                                                         kind.constData());
                                      })
        .value_or(1);
}

int ControllerAccess::announcedPause(const QByteArray &kind, int step) const
{
    const auto value = ControllerCall::text(m_commands, [&kind, step](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "cal step_pause %s s%02d", kind.constData(), step);
    });
    return CalibrationAnswers::announcedPause(value.value_or(QByteArray()));
}

std::optional<int> ControllerAccess::stepPause(const QByteArray &kind, int step) const
{
    return CalibrationAnswers::stepPause(
        ControllerCall::answer(m_commands, [&kind, step](IOManager &channel, char *answer) {
            return channel.sendCommand(answer, "velmar2 get cal step_pause %s s%02d", kind.constData(), step);
        }));
}

bool ControllerAccess::startCalibration(const QByteArray &kind) const
{
    return ControllerCall::answer(m_commands, [&kind](IOManager &channel, char *answer) {
               return channel.sendCommand(answer, "velmar2 cal %s start", kind.constData());
           }) == ControllerCall::accepted;
}

void ControllerAccess::stopCalibration(const QByteArray &kind) const
{
    (void)ControllerCall::answer(m_commands, [&kind](IOManager &channel, char *answer) {
        return channel.sendCommand(answer, "velmar2 cal %s stop", kind.constData());
    });
}

std::optional<double> ControllerAccess::calibrationProgress() const
{
    return ControllerCall::value<double>(m_commands, [](IOManager &channel, double *value) {
        return channel.getParameterDouble(value, "status progress");
    });
}

CalibrationStep ControllerAccess::activeStep() const
{
    const auto value = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "status step_active");
    });
    return value ? CalibrationAnswers::step(*value) : CalibrationStep::Failed;
}

std::optional<StepProgress> ControllerAccess::stepProgress() const
{
    const auto value = ControllerCall::text(m_commands, [](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "status step_progress");
    });
    return value ? CalibrationAnswers::stepProgress(*value) : std::nullopt;
}

std::optional<double> ControllerAccess::stepDuration(const QByteArray &kind, int step) const
{
    const auto value = ControllerCall::text(m_commands, [&kind, step](IOManager &channel, char *answer) {
        return channel.getParameter(answer, "cal step_duration %s s%02d", kind.constData(), step);
    });
    return value ? CalibrationAnswers::leadingReal(*value) : std::nullopt;
}

QByteArray ControllerAccess::calibrationError() const
{
    return CalibrationAnswers::quotedText(
        ControllerCall::answer(m_commands, [](IOManager &channel, char *answer) {
            return channel.sendCommand(answer, "velmar2 get status err");
        }));
}

std::optional<int> ControllerAccess::numberOfCamerasToCalibrate() const
{
    const std::optional<int> count = cameraCount();
    reportUnless(count.has_value(), "Error: Unable to get the number of cameras");
    return count;
}

QByteArray ControllerAccess::cameraSerial(int camera) const
{
    return CalibrationAnswers::cameraSerial(
        ControllerCall::answer(m_commands, [camera](IOManager &channel, char *answer) {
            return channel.sendCommand(answer, "velmar2 get camera camera c%02d", camera);
        }));
}

float ControllerAccess::cameraProgress(int camera) const
{
    return CalibrationAnswers::cameraProgress(
        ControllerCall::answer(m_commands, [camera](IOManager &channel, char *answer) {
            return channel.sendCommand(answer, "velmar2 get status camera_progress c%02d", camera);
        }));
}
