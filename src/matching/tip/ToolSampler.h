#pragma once

#include "ButtonWatch.h"
#include "MeasuringConditions.h"
#include "TipCollector.h"
#include "VelmarParser.h"

#include <array>

/// Follows the selected measurement tool through the controller's records, and collects its tip measurements.
///
/// Tools are numbered from 1. Units: millimetres and seconds.
class ToolSampler
{
public:
    enum class Event {
        Ignored,        ///< not the selected tool
        StartRequested, ///< a button was pressed while the controller does not measure
        FirstSample,    ///< a measurement began
        Sampled,        ///< it goes on
        Ended,          ///< the controller does not measure, or the tool is lost
    };

    struct Step {
        Event event = Event::Ignored;
        double elapsed = 0.0;              ///< of Sampled
        TipCollector::Judgement judgement; ///< of Ended; Nothing if no measurement was going on
    };

    static constexpr int noTool = -1;

    /// Forgets samples, tracking state, buttons and what was decoded; the tool stays.
    void restart();

    /// Begins anew with another tool, or noTool; what was decoded stays.
    void selectTool(int number);
    [[nodiscard]] int selectedTool() const { return m_tool; }

    /// How long a measurement must last, and how far its tip may spread.
    void setLimits(double duration, double tolerance);

    [[nodiscard]] double toleranceMm() const { return m_tolerance; }
    /// Of a measurement that goes on or ends now.
    [[nodiscard]] MeasuringConditions conditions() const { return {m_tool, m_duration, m_tolerance}; }

    /// The selected tool was tracked in the last record.
    [[nodiscard]] bool isTracked() const { return m_tracked; }

    /// Takes the values of a record over. False for a null text, a record of bufferSize bytes or more, which
    /// is not even copied, and one that does not convert.
    [[nodiscard]] bool decode(const char *text);

    /// How many tools the records have told of.
    [[nodiscard]] int toolCount() const { return m_parser.measurementToolCount(); }

    /// Looks at the buttons; to be called after every record, also when nobody asks for a sample.
    void watchButtons() { m_buttons.look(m_parser, m_tool); }

    /// Looks at the tool at an index of the decoded list (from 0); to be called after watchButtons().
    [[nodiscard]] Step sample(int index);

    /// Forgets the samples.
    void drop() { m_measurement.clear(); }

private:
    static constexpr std::size_t bufferSize = 10240;

    [[nodiscard]] Step collect(const MeasurementToolRecord &tool);

    VelmarParser m_parser;
    ButtonWatch m_buttons;
    std::array<char, bufferSize> m_buffer{};
    TipCollector m_measurement;
    int m_tool = noTool;
    double m_duration = MeasurementAccess::defaultDurationSeconds;
    double m_tolerance = MeasurementAccess::defaultToleranceMm;
    bool m_tracked = false;
};
