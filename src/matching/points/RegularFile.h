#pragma once

class QByteArray;

/// What stands behind a name that is handed to the file system as it is.
namespace RegularFile
{

[[nodiscard]] bool isThere(const QByteArray &name);

/// Only these are opened: a directory opens but cannot be read, and a pipe may wait for ever.
[[nodiscard]] bool isRegular(const QByteArray &name);

} // namespace RegularFile
