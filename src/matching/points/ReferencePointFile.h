#pragma once

#include <QString>

#include <array>

class QIODevice;

/// Reference point files: which file a name means, and the format that is saved.
namespace ReferencePointFile
{

/// Whether PointFileReading would find something of that name.
[[nodiscard]] bool exists(const QString &fileName);

/// The texts of the three coordinate cells of one table row.
using Row = std::array<QString, 3>;

/// The ending of the files that are saved, without the point.
[[nodiscard]] QString suffix();

/// `fileName` without blanks around it and with ".txt" behind it, unless it ends so.
[[nodiscard]] QString savedName(const QString &fileName);

/// Writes the line "number x y z" of a row; each text is normalised.
void write(QIODevice &device, int number, const Row &row);

} // namespace ReferencePointFile
