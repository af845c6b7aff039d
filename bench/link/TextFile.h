#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Makes the text the whole content of a file. Nothing when that is done; else the reason, and the file is as
/// it was.
std::optional<QString> saveText(const QString &file, const QByteArray &text);
