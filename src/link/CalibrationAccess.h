#pragma once

#include "AngleToolSettings.h"
#include "CalibrationAnswers.h"
#include "ControllerChannel.h"
#include "ControllerReply.h"

#include <QByteArray>

#include <optional>

/// The module's way to the calibrations that the controller performs itself, the one with the angle tool
/// among them.
///
/// `kind` is the controller's name of a calibration; steps and cameras count from 1. Durations are in
/// seconds. What is reported, and what a failure gives, each comment says; without a word a failure is
/// silent. Raw commands are judged by the answer alone. All calls are synchronous and belong on the GUI
/// thread; the host may destroy the access in any of them.
class CalibrationAccess
{
public:
    /// Neither pointer is owned; both may be null: without a channel every call fails.
    CalibrationAccess(IOManager *commands, const BackendVersions *versions);

    bool supports(ControllerFeature feature) const { return m_channel.supports(feature); }

    // --- Preparing a calibration

    /// Empty on failure.
    QByteArray description(const QByteArray &kind) const;
    /// 1 on failure.
    int steps(const QByteArray &kind) const;
    /// Seconds before a step, 0 for none or on failure.
    int announcedPause(const QByteArray &kind, int step) const;
    /// The same from the raw query: nothing when the answer is not yes.
    std::optional<int> stepPause(const QByteArray &kind, int step) const;

    // --- Running it

    Activity activity() const;
    void stopTracking() const;
    [[nodiscard]] bool start(const QByteArray &kind) const;
    void stop(const QByteArray &kind) const;
    /// Fraction of the whole calibration, 0 to 1.
    std::optional<double> progress() const;
    CalibrationStep activeStep() const;
    std::optional<StepProgress> stepProgress() const;
    std::optional<double> stepDuration(const QByteArray &kind, int step) const;
    /// The controller's sentence about its error, in its own encoding.
    QByteArray error() const;
    /// Starts and stops tracking, which makes the controller forget its error.
    void clearError() const;

    // --- Cameras

    /// At most 1000, never negative; a failure is reported.
    std::optional<int> numberOfCameras() const;
    QByteArray cameraSerial(int camera) const;
    /// Fraction, 0 when it cannot be read.
    float cameraProgress(int camera) const;

    // --- The room calibration with the angle tool; every failure is reported

    AngleToolSettings angleToolSettings() const;
    [[nodiscard]] bool chooseAngleTool() const;
    /// Hands over the setup, shortens the calibration to the few seconds that the angle tool needs, and notes
    /// the beginning for the host. Each step is made whatever becomes of the others. Returns the duration to
    /// be restored at the end; 30 on failure and for controllers without this parameter.
    double setUpAngleTool(const AngleToolSetup &setup) const;
    /// Makes the controller adopt the calibration that has just ended.
    [[nodiscard]] bool acceptNewCalibration() const;
    /// After the acceptance: tracking starts when the controller is idle or in error and can track, then the
    /// duration is restored.
    void concludeAngleTool(double durationSeconds) const;
    /// After a cancellation or an error: notes it for the host, restores the duration, then tracking starts
    /// as above.
    void abandonAngleTool(double durationSeconds) const;

private:
    ControllerChannel m_channel;
};
