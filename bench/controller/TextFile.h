#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What a file holds, at most so many bytes of it. Only regular files are opened, so that nothing waits for
/// ever at a pipe; on failure nothing, and the reason if it is wanted.
std::optional<QByteArray> readText(const QString &file, qint64 mostBytes, QString *reason);

/// Makes the text the whole content of a file, of a regular or a new one. Nothing when that is done; else the
/// reason, and the file is as it was.
std::optional<QString> saveText(const QString &file, const QByteArray &text);
