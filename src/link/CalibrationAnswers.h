#pragma once

#include <QByteArray>

#include <optional>

/// What the controller says about the steps of a running calibration.
enum class CalibrationStep { Failed, None, First, Second, PauseAfterFirst, Error, Other };

/// How far the current step is.
struct StepProgress {
    int step = 0;                   ///< from 1
    std::optional<double> fraction; ///< 0 to 1; nothing when the answer holds no number for it
};

/// What the texts mean with which the controller answers during a calibration.
///
/// Words are separated by single blanks and counted from 0. Numbers are read as in the "C" locale. Nothing
/// here fails: a text without the expected words has the meaning that each comment names.
namespace CalibrationAnswers
{

/// Of a step whose pause the controller does not tell.
constexpr int defaultPauseSeconds = 5;

/// The seconds of the value "yes SECONDS", truncated. 0 for a value that does not begin with "yes" or has no
/// number as its second word.
int announcedPause(const QByteArray &value);

/// The seconds of the answer "velmar2 get cal step_pause KIND sNN yes SECONDS": nothing unless word 6 is
/// "yes", the default when word 7 is not a whole number or is 0.
std::optional<int> stepPause(const QByteArray &answer);

/// "none", "err", "cal 1", "cal 2" or "pause 1", compared as a whole.
CalibrationStep step(const QByteArray &value);

/// A whole number and a real number; nothing when the value does not begin with a whole number.
std::optional<StepProgress> stepProgress(const QByteArray &value);

/// The real number at the beginning; nothing when there is none.
std::optional<double> leadingReal(const QByteArray &value);

/// The text between the first and the second double quote; empty without quotes.
QByteArray quotedText(const QByteArray &answer);

/// Word 5 of "velmar2 get status camera_progress cNN FRACTION"; 0 when it is no number.
float cameraProgress(const QByteArray &answer);

/// Word 6 of "velmar2 get camera camera cNN MODEL SERIAL".
QByteArray cameraSerial(const QByteArray &answer);

} // namespace CalibrationAnswers
