#pragma once

#include <QString>

#include <array>
#include <optional>

class ControllerLink;

/// The extra transformation as the controller itself says it: translation in mm, rotation row by row.
struct ControllerTrafo {
    std::array<double, 3> translationMm = {};
    std::array<double, 9> rotation = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    double scaling = 1.0;

    /// Asks the controller, past the log. Nothing when one of the three answers is missing or no number.
    static std::optional<ControllerTrafo> read(ControllerLink &link);

    /// Whether every number differs by less than what the controller's decimals hold: 1e-7 in the rotation
    /// and the scaling, 5e-4 mm in the translation.
    bool isNear(const ControllerTrafo &other) const;

    /// Three lines: rotation, translation, scaling.
    QString asText() const;
};
