#pragma once

#include <string>
#include <utility>

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
