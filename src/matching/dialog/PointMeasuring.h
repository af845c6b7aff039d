#pragma once

#include "MeasurementAccess.h"
#include "RecordWatch.h"
#include "ToolSampler.h"
#include "ToolSurvey.h"

#include <QObject>

class MatchingState;

/// How a point is measured: the calls that start a measurement, and the records that follow it to its end. No
/// widget takes part. Units: millimetres and seconds.
///
/// The host may destroy this in any call to the controller, and whoever hears a signal may do so, too.
class PointMeasuring : public QObject
{
    Q_OBJECT

public:
    /// Neither pointer is owned; both may be null. The state must outlive this; it is told what happens.
    PointMeasuring(IOManager *commands, const BackendVersions *versions, MatchingState &state,
                   QObject *parent);

    /// Forgets what was decoded and sampled, and asks the controller for its tools.
    [[nodiscard]] ToolSurvey open();

    /// Begins anew with another tool, or ToolSampler::noTool.
    void selectTool(int number) { m_sampler.selectTool(number); }
    /// A tool is selected and was tracked in the last record.
    [[nodiscard]] bool isTracked() const;
    /// Of a measurement that goes on or ends now.
    [[nodiscard]] MeasuringConditions conditions() const { return m_sampler.conditions(); }

    /// The wait for the first record begins.
    void awaitRecords();
    [[nodiscard]] bool recordsArrive() const;

    /// Takes a record. Returns 0, or -2 for one that cannot be decoded.
    int dataReceived(const char *kind, const char *text);

    /// Lets the controller measure with the selected tool, if there is one and nothing is being started.
    void start();
    /// Forgets the samples.
    void drop() { m_sampler.drop(); }

signals:
    /// A button asks for a measurement.
    void startRequested();
    /// The calls that start a measurement begin.
    void starting();
    /// A measurement will last that long.
    void durationKnown(double seconds);
    /// Seconds since its first sample.
    void sampled(double elapsed);
    /// It is over, or none was going on; the conditions are still its own.
    void ended(const TipCollector::Judgement &judgement);

private:
    void takeStep(const ToolSampler::Step &step);

    MeasurementAccess m_controller;
    MatchingState &m_state;
    ToolSampler m_sampler;
    RecordWatch m_records;
};
