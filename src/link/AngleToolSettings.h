#pragma once

#include <QByteArray>

#include <array>
#include <optional>
#include <vector>

/// A coordinate type that the controller offers for the calibration with the angle tool: by its name, since a
/// controller may offer others than the module has learned.
struct OfferedCoordinateType {
    QByteArray identifier;
    QByteArray description; ///< for people, as the controller sends it; the identifier when it sends none
};

/// What the controller holds for the room calibration with the angle tool.
struct AngleToolSettings {
    /// Those that suit the angle tool, in the controller's order. One without a readable identifier is left
    /// out.
    std::vector<OfferedCoordinateType> coordinateTypes;
    std::optional<std::array<double, 3>> distances; ///< marker distances A, B, C in mm
    /// Millimetres; controllers that do not know the height are not asked.
    std::optional<double> height;
    QByteArray coordinateType; ///< identifier of the chosen one, "normal" when it cannot be read
};

/// What the room calibration with the angle tool is to work with.
struct AngleToolSetup {
    std::array<double, 3> distances{}; ///< marker distances A, B, C in mm
    double height = 0.0;               ///< mm
    QByteArray coordinateType;         ///< identifier
};
