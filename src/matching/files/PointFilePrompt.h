#pragma once

#include <QString>

class QWidget;

/// Asks for the name of a reference point file. The answer is empty when the user cancelled, and also when
/// the parent was destroyed while the question was open; the caller must then not touch the parent.
///
/// The dialogs begin in the folder in which a file was chosen last, which is kept as long as the host runs,
/// at first in the user's home.
namespace PointFilePrompt
{

/// The name of a file that exists, as ReferencePointFile::load takes it.
[[nodiscard]] QString fileToLoad(QWidget *parent, const QString &title, const QString &filter);
/// A name for PointFileSaving; the user agreed if it replaces a file.
[[nodiscard]] QString fileToSave(QWidget *parent, const QString &title, const QString &filter);

/// The next dialog begins in the user's home again.
void forgetFolder();

} // namespace PointFilePrompt
