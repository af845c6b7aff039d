#pragma once

#include <array>

/// What the controller reports about one thing in a frame. A quality of -1.0 means that it was not tracked.
/// Locations are in millimetres, rotations hold nine numbers in the order of the record.

/// How a line of measurement tools in the first format begins; the blank is part of it.
constexpr char toolLineBeginning[] = "6dmt ";

/// Places for buttons, flags and joystick values; further ones of a record are read and dropped.
constexpr int recordButtonPlaces = 16;

using RecordLocation = std::array<double, 3>;
using RecordRotation = std::array<double, 9>;
using RecordButtons = std::array<int, recordButtonPlaces>;

/// A single marker ("3d").
struct MarkerRecord {
    int id = 0;
    double quality = -1.0;
    RecordLocation location{};
};

/// A standard body ("6d"), a tool reference ("6dmtr") or an inertial body ("6di").
struct BodyRecord : MarkerRecord {
    RecordRotation rotation{};
};

/// A hand-held device ("6df", "6df2").
struct HandheldRecord : BodyRecord {
    int buttonCount = 0;
    int joystickCount = 0;
    RecordButtons buttons{};
    std::array<double, recordButtonPlaces> joysticks{};
};

/// A measurement tool ("6dmt", "6dmt2"): flag 0 tells that the controller measures, 1 to 3 are the tool's
/// buttons.
struct MeasurementToolRecord : BodyRecord {
    int flagCount = 0;
    RecordButtons flags{};
    double tipRadius = 0.0;             ///< mm; only the second format fills it
    std::array<double, 6> covariance{}; ///< mm^2: xx xy xz yy yz zz; only the second format fills it
};

/// A joint ("6dj") with its six further values.
struct JointRecord : BodyRecord {
    std::array<double, 6> values{};
};

/// A glove ("gl"): a joint with a side (0 left, 1 right) and a number of fingers.
struct GloveRecord : JointRecord {
    int side = 0;
    int fingerCount = 0;
};
