#pragma once

#include <QString>

#include <array>
#include <vector>

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

/// Writes one line "number x y z" per row; the numbers count from 1, each text is normalised.
void write(QIODevice &device, const std::vector<Row> &rows);

/// Writes the rows to savedName(fileName), which is replaced only when all is written. False when that could
/// not be done; an older file is then as it was. Regular files only: a pipe may wait for ever.
[[nodiscard]] bool save(const QString &fileName, const std::vector<Row> &rows);

} // namespace ReferencePointFile
