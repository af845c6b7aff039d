#pragma once

#include "CalibrationAccess.h"
#include "MeasurementAccess.h"
#include "TrackingAccess.h"

#include <string>
#include <vector>

class AnswerHost;

/// Everything of the product that reads the controller's answers, in groups that each begin with the host's
/// next answer.
///
/// A reading checks what it got against the answers, by rules of its own, and returns all of it as one text:
/// the same answers must give the same text, whatever the locale and however often they are read.
namespace AnswerReadings
{

struct Accesses {
    TrackingAccess tracking;
    MeasurementAccess measurement;
    CalibrationAccess calibration;
};

using Reading = std::string (*)(const Accesses &, AnswerHost &);

const std::vector<Reading> &all();

} // namespace AnswerReadings
