#pragma once

#include <QString>
#include <QStringList>

/// Finds the scenarios that are supplied with the bench.
namespace ScenarioFile
{

/// Where scenarios are looked for: where the build tree has them, seen from a program's folder in it, and
/// where they are installed.
[[nodiscard]] QStringList folders(const QString &executableFolder);

/// `wanted` is a file, or the bare name of a supplied scenario ("two-tools"). A file of that name goes first;
/// what is not found comes back as it is.
[[nodiscard]] QString find(const QString &wanted, const QString &executableFolder);

} // namespace ScenarioFile
