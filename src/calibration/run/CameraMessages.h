#pragma once

#include <QString>

#include <optional>
#include <vector>

/// The messages about cameras that the host delivers while a calibration runs: lists separated by commas.
/// Cameras and tabs count from 0 in them.
namespace CameraMessages
{

/// Whether the list holds the camera as a plain decimal number.
bool holdsCamera(const QString &message, int camera);

/// The tab of each camera, in the order of the cameras; nothing where an entry is no whole number from 0 on.
std::vector<std::optional<int>> tabs(const QString &message);

} // namespace CameraMessages
