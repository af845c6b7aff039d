#pragma once

#include <QString>

#include <optional>

class QImage;

/// Whether a person would see that two pictures are not the same.
namespace PictureComparison
{

/// A sentence on what is to be seen; nothing when they look alike. Another drawing of the same edges does not
/// count: both are made smaller first. What counts is a place, a dozen pixels wide, whose colour differs
/// clearly.
std::optional<QString> visibleDifference(const QImage &one, const QImage &other);

} // namespace PictureComparison
