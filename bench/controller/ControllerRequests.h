#pragma once

#include "SimRequest.h"

#include <vector>

// The rows of the controller's own vocabulary, by topic. Their patterns leave out the leading "velmar2".

std::vector<SimRequestRow> statusRequests();
std::vector<SimRequestRow> trackingRequests();
std::vector<SimRequestRow> roomCalibrationRequests();
std::vector<SimRequestRow> calibrationRequests();
std::vector<SimRequestRow> measurementToolRequests();
