#pragma once

#include <functional>

class QByteArray;
class QIODevice;
class QSaveFile;
class QString;

/// What stands behind a name that is handed to the file system as it is.
namespace RegularFile
{

[[nodiscard]] bool isThere(const QByteArray &name);

/// Only these are opened: a directory opens but cannot be read, and a pipe may wait for ever.
[[nodiscard]] bool isRegular(const QByteArray &name);

/// Writes a file, which is replaced only when all is written; the writer need not look for failures. False
/// when that could not be done; an older file is then as it was.
[[nodiscard]] bool replace(const QString &name, const std::function<void(QIODevice &)> &write);

/// The two steps of that, for who writes piece by piece.
[[nodiscard]] bool beginToReplace(QSaveFile &file);
[[nodiscard]] bool endToReplace(QSaveFile &file);

} // namespace RegularFile
