#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SimMachine;

/// What a request or a control line gives back.
struct SimReply {
    enum class Kind { Ok, Value, Error };

    Kind kind = Kind::Ok;
    std::string text; ///< the value, or the error's text
    int code = 0;     ///< of an error

    static SimReply ok() { return {}; }
    static SimReply value(std::string text) { return {Kind::Value, std::move(text), 0}; }
    static SimReply error(int code, std::string text) { return {Kind::Error, std::move(text), code}; }

    // Every refusal of a request, by its number.
    static SimReply unknownCommand() { return error(1, "unknown command"); }
    static SimReply unknownParameter() { return error(2, "unknown parameter"); }
    static SimReply badValue() { return error(3, "bad value"); }
    static SimReply expected(const std::string &what) { return error(3, "expected: " + what); }
    static SimReply noSuch(const std::string &thing) { return error(4, "no such " + thing); }
    static SimReply lineTooLong() { return error(6, "line too long"); }
    static SimReply notAvailable() { return error(11, "tracking not available"); }
    static SimReply calibrating() { return error(12, "calibration is running"); }
    static SimReply locked() { return error(13, "configuration is locked"); }
    static SimReply stopTrackingFirst() { return error(20, "stop tracking first"); }
    static SimReply trackingRunning() { return error(21, "tracking is running"); }
    static SimReply otherCalibrationRunning() { return error(22, "another calibration is running"); }
    static SimReply noNewCalibration() { return error(31, "no new calibration"); }
    static SimReply notMeasuring() { return error(40, "not measuring"); }
    static SimReply toolNotTracked() { return error(41, "tool not tracked"); }
    static SimReply measurementRunning() { return error(42, "measurement is running"); }
    static SimReply tipNotCalibrated() { return error(43, "tip not calibrated"); }
    static SimReply tooManyConnections() { return error(50, "too many connections"); }
    static SimReply idle() { return error(51, "idle while others wait"); }
    static SimReply fault(int code) { return error(code, "fault on request"); }

    // What a failed calibration leaves as the controller's error.
    static SimReply calibrationFailed(const std::string &reason) { return error(16, reason); }
    static SimReply angleToolNotFound() { return error(17, "Angle tool not found."); }
    static SimReply wrongCalibrationType() { return error(18, "Wrong calibration type."); }
    static SimReply angleToolMismatch() { return error(19, "Angle tool does not match."); }
};

/// The changing words of a request, in their order.
struct SimArguments {
    std::vector<int> numbers;             ///< what stood for # or for c#, t#, b#, s#
    std::vector<std::string_view> words;  ///< what stood for *
    std::vector<std::string_view> values; ///< what stood for ...

    /// All values as numbers; nothing unless there are exactly `count` and every one is a number.
    std::optional<std::vector<double>> reals(std::size_t count) const;

    /// The number at that place as an index from 0 into a list of that size.
    std::optional<std::size_t> index(std::size_t place, std::size_t size) const;
};

/// What a row's request is refused for before it is looked at.
enum class SimGuard {
    None,
    Unlocked, ///< a locked configuration
    Still,    ///< a locked configuration, and measuring when strict; when not, measuring is noted
};

/// One row of a vocabulary: a pattern of words, what answers it, and what stands before it.
///
/// In a pattern # is a number from 1, c# is a letter and a number of two digits or more, * is any word, ...
/// are the words that are left (none is possible); every other word stands for itself.
struct SimRequestRow {
    std::string_view pattern;
    SimReply (*answer)(SimMachine &machine, const SimArguments &arguments);
    SimGuard guard = SimGuard::None;
};

/// Rows that are asked in their order, the first match wins.
class SimRequestTable
{
public:
    explicit SimRequestTable(const std::vector<std::vector<SimRequestRow>> &parts);

    /// Nothing when no row matches.
    std::optional<SimReply> answer(SimMachine &machine, const std::vector<std::string_view> &words) const;

private:
    struct Row {
        std::vector<std::string_view> pattern;
        SimReply (*answer)(SimMachine &machine, const SimArguments &arguments);
        SimGuard guard;
    };

    static SimReply guarded(const Row &row, SimMachine &machine, const SimArguments &arguments);

    std::vector<Row> m_rows;
};
