#pragma once

#include "MatchingPoint.h"

#include <QString>

#include <array>
#include <vector>

class QIODevice;

/// Reference point files: which file a name means, what a load brought, and the format that is saved.
namespace ReferencePointFile
{

enum class LoadResult {
    NotOpened,     ///< no regular file of that name can be read
    UnknownFormat, ///< nothing in the file starts a list of points
    Loaded,
};

/// Replaces `points` by those of the file, and leaves them as they are unless the result is Loaded.
/// The name reaches the file system as Latin-1, or as save() writes it where there is no such file. For the
/// formats see ReferencePointReader.
[[nodiscard]] LoadResult load(const QString &fileName, MatchingPoints &points);

/// Whether load() would find something of that name.
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
