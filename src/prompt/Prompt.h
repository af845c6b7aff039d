#pragma once

#include <QMessageBox>

/// Message boxes that survive the destruction of their parent.
namespace Prompt
{

/// Shows a modal message box and returns the button that was pressed.
///
/// Returns QMessageBox::NoButton when the parent was destroyed while the box was open; the caller must then
/// not touch the parent, nor itself if it belongs to it. Texts are shown as they are, finished and
/// translated.
QMessageBox::StandardButton ask(QWidget *parent, QMessageBox::Icon icon, const QString &title,
                                const QString &text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace Prompt
