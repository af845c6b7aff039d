#include "RequiredReports.h"

namespace
{

struct Rule {
    const char *operation;
    const char *text;   ///< how the call's text begins
    const char *stage;  ///< what was done last; empty: whatever it was
    const char *before; ///< operation of the call before; empty: whatever it was
    const char *report;
};

const char *const calibrationType = "Error: Cannot require room calibration coordinate type.";
const char *const setDuration = "Error: Cannot set room calibration duration";
const char *const cancelled = "room adjustment according angle tool canceled";
const char *const noAcceptance = "Unable to set new calibration to Controller";

// The first that fits counts.
const Rule rules[] = {
    {"sendCommand", "velmar2 tracking start", "calibrating", "", ""},
    {"sendCommand", "velmar2 tracking start", "pb_cancel", "", ""},
    {"sendCommand", "velmar2 tracking start", "", "", "Error: Unable to start tracking"},
    {"sendCommand", "velmar2 tracking stop", "pushButton_calibrate", "", ""},
    {"sendCommand", "velmar2 tracking stop", "", "", "Error: Unable to stop tracking"},
    {"getParameter", "status active", "pushButton_calibrate", "", ""},
    {"getParameter", "status active", "calibrating", "", ""},
    {"getParameter", "status active", "pb_cancel", "", ""},
    {"getParameter", "status active", "", "", "Error: Unable to check tracking status"},
    {"getParameter", "tracking available", "", "", ""},
    {"getParameter", "config is_changeable", "", "", ""},
    {"getParameterInt", "camera number_of_cameras", "pushButton_calibrate", "",
     "Error: Unable to get the number of cameras"},
    {"getParameterInt", "camera number_of_cameras", "", "", "Error: Unable to get number of cameras"},
    {"getParameterBool", "tracking has_room", "", "", ""},
    {"getParameter", "tracking room", "", "", "Error: Unable to get room cal of camera"},
    {"getParameter", "tracking extra_", "", "", ""},
    {"getParameterDoubles", "tracking extra_translation", "", "",
     "Error: Unable to get info extra translation"},
    {"getParameterDoubles", "tracking extra_rotation", "", "", "Error: Unable to get info extra rotation"},
    {"getParameterDouble", "tracking extra_scaling", "", "getParameterDoubles",
     "Error: Unable to get info extra scaling"},
    {"getParameterDouble", "tracking extra_scaling", "", "", ""},
    {"setParameter", "tracking extra_rotation", "w_bodyMatchingButton", "",
     "Error: Unable to set extra rotation default"},
    {"setParameter", "tracking extra_translation", "w_bodyMatchingButton", "",
     "Error: Unable to set extra translation default"},
    {"setParameter", "tracking extra_scaling", "w_bodyMatchingButton", "",
     "Error: Unable to set extra scaling default"},
    {"setParameter", "tracking extra_rotation", "w_applyButton", "", "Error: Unable to set extra rotation"},
    {"setParameter", "tracking extra_translation", "w_applyButton", "",
     "Error: Unable to set extra translation"},
    {"setParameter", "tracking extra_scaling", "w_applyButton", "", "Error: Unable to set extra scaling"},
    {"setParameter", "tracking extra_rotation", "", "", "Error: Unable to set room adjustment rotation"},
    {"setParameter", "tracking extra_translation", "", "",
     "Error: Unable to set room adjustment translation"},
    {"setParameter", "tracking extra_scaling", "", "", "Error: Unable to set room adjustment scaling"},
    {"getParameter", "tracking reference", "", "", "Error: Unable to get info reference target"},
    {"setParameter", "tracking reference none", "", "", "Error: Unable to unset reference target"},
    {"setParameter", "tracking reference ", "", "", "Error: Unable to restore reference target"},
    {"getParameterBool", "measurementtool available", "", "",
     "Error: Unable to get info measurement tool available"},
    {"getParameter", "measurementtool available", "", "", ""},
    {"getParameterInt", "measurementtool number_of_tools", "", "",
     "Error : Unable to get number of measurement tools"},
    {"getParameterBool", "measurementtool tip_calibrated", "", "getParameterInt",
     "Error : Unable to get info of tip calibration"},
    {"getParameterBool", "measurementtool tip_calibrated", "", "getParameterBool", ""},
    {"getParameterDouble", "measurementtool measurement_duration", "", "", ""},
    {"getParameterDouble", "measurementtool measurement_tip_tolerance", "", "",
     "Error : Unable to get tip tolerance of measurement tool"},
    {"sendCommand", "velmar2 measurementtool start_measurement", "", "",
     "Error : Unable to start measurement tool measurement"},
    {"getParameter", "roomcal last_coordinate_type", "", "", calibrationType},
    {"getParameter", "roomcal coordinate_type", "pushButton_att", "", "Error: Unable to get coordinate type"},
    {"getParameter", "roomcal coordinate_type", "", "", calibrationType},
    {"getParameterInt", "roomcal number_of_available_coordinate_types", "", "",
     "Error: Unable to get number of coordinate system types"},
    {"getParameter", "roomcal available_coordinate_type_desc", "", "",
     "Error: Unable to get coordinate type description"},
    {"getParameter", "roomcal available_coordinate_type ", "", "", "Error: Unable to get coordinate type"},
    {"getParameterDoubles", "roomcal angle", "", "", "Error: Unable to get values of last used angle tool"},
    {"getParameterDouble", "roomcal angle_height", "", "", "Error: Unable to angle tool height"},
    {"setParameter", "roomcal type angle_no_wand", "", "",
     "Error: Cannot set room calibration type to only angle tool"},
    {"setParameter", "roomcal angle_height", "", "", "Error: Unable to set angle tool height"},
    {"setParameter", "roomcal angle ", "", "", "Error: Unable to set roomcalibration angle tool"},
    {"getParameterDouble", "roomcal duration", "", "",
     "Error: Cannot get information room calibration duration"},
    {"setParameter", "roomcal duration", "", "", setDuration},
    {"setParameter", "roomcal coordinate_type", "", "",
     "Error: Cannot set room calibration coordinate system"},
    {"sendCommand", "velmar2 roomcal accept_new_calibration", "", "", noAcceptance},
    {"getParameter", "cal ", "", "", ""},
    {"getParameterInt", "cal number_of_steps", "", "", ""},
    {"sendCommand", "velmar2 cal room start", "", "", cancelled},
    {"sendCommand", "velmar2 cal room stop", "", "", ""},
    {"sendCommand", "velmar2 get ", "", "", ""},
    {"getParameterDouble", "status progress", "", "", ""},
    {"getParameter", "status step_progress", "", "", ""},
};

bool fits(const Rule &rule, const std::vector<SweptCall> &calls, std::size_t index)
{
    const SweptCall &one = calls[index];
    const std::string before = index > 0 ? calls[index - 1].call.operation : std::string();
    const std::string stage = rule.stage;
    return one.call.operation == rule.operation && one.call.text.rfind(rule.text, 0) == 0 &&
           (stage.empty() || one.stage.toStdString() == stage) &&
           (*rule.before == '\0' || before == rule.before);
}

} // namespace

namespace RequiredReports
{

std::optional<QString> onFailure(const std::vector<SweptCall> &calls, std::size_t index)
{
    for (const Rule &rule : rules) {
        if (fits(rule, calls, index))
            return QString::fromLatin1(rule.report);
    }
    return std::nullopt;
}

// A host says itself that a number is none; texts are compared only where their meaning matters.
std::optional<QString> onGarbage(const std::vector<SweptCall> &calls, std::size_t index)
{
    const std::string &operation = calls[index].call.operation;
    const std::string &text = calls[index].call.text;
    const bool isNumber = operation.rfind("getParameter", 0) == 0 && operation != "getParameter";
    const bool isCompared =
        text == "velmar2 cal room start" || text == "velmar2 roomcal accept_new_calibration";
    const std::optional<QString> report = onFailure(calls, index);
    return !report || isNumber || isCompared ? report : QString();
}

} // namespace RequiredReports
