#pragma once

#include "ControllerChannel.h"
#include "ControllerReply.h"
#include "RoomTrafoData.h"

#include <QByteArray>

#include <optional>

/// The module's way to the measurement tools, and to what must be neutral while they measure: the extra
/// transformation and the reference target.
///
/// Units: millimetres, seconds. Tools count from 1. A failure is reported unless the comment says otherwise,
/// and then the value is what the comment names; values of a failed read are never used. All calls are
/// synchronous and belong on the GUI thread; the host may destroy the access in any of them.
class MeasurementAccess
{
public:
    /// Neither pointer is owned; both may be null: without a channel every call fails.
    MeasurementAccess(IOManager *commands, const BackendVersions *versions);

    bool supports(ControllerFeature feature) const { return m_channel.supports(feature); }

    // --- Measurement tools

    /// Asks as the fine panel does, for the report of a failure only.
    void checkTool() const;
    /// Silent on failure.
    Reply toolAvailable() const;
    /// 0 on failure; at most 1000, more are not asked about.
    int numberOfTools() const;
    /// False on failure.
    bool tipIsCalibrated(int tool) const;
    /// False on failure, without a report.
    bool tipIsCalibratedQuietly(int tool) const;
    static constexpr double defaultDurationSeconds = 1.0;
    static constexpr double defaultToleranceMm = 1.5;
    /// Seconds; the default on failure, without a report.
    double duration(int tool) const;
    /// Millimetres; the default on failure.
    double tipTolerance(int tool) const;
    void startMeasurement(int tool) const;

    // --- Extra transformation

    /// Silent on failure.
    std::optional<double> extraScaling() const;
    /// Translation, rotation, scaling; ends at the first failure.
    std::optional<RoomTrafoData> extraTransformation() const;
    /// Each of the three is attempted.
    void setNeutralExtraTransformation() const;
    void restoreExtraTransformation(const RoomTrafoData &data) const;

    // --- Reference target

    /// Its name; empty when there is none or the read failed.
    QByteArray referenceTarget() const;
    [[nodiscard]] bool unsetReferenceTarget() const;
    [[nodiscard]] bool restoreReferenceTarget(const QByteArray &target) const;

private:
    ControllerChannel m_channel;
};
