#pragma once

#include <QString>

class QWidget;

/// Asks for the name of a reference point file. The answer is empty when the user cancelled, and also when
/// the parent was destroyed while the question was open; the caller must then not touch the parent.
namespace PointFilePrompt
{

[[nodiscard]] QString fileToLoad(QWidget *parent, const QString &title, const QString &filter);
[[nodiscard]] QString fileToSave(QWidget *parent, const QString &title, const QString &filter);

} // namespace PointFilePrompt
