#pragma once

#include <QStringList>

class QWidget;

/// What is wrong with a window that is shown, one sentence per fault; empty when all is well.
namespace WindowAudit
{

/// Texts that get less room than they need, and windows larger than the screen.
QStringList clippedTexts(const QWidget &window);
/// Letters that two visible controls, or two entries of a menu, answer to, and letters that not every
/// keyboard has.
QStringList mnemonicFaults(const QWidget &window);
/// Controls that say no name to a screen reader.
QStringList namelessControls(QWidget &window);

/// Every text of the window: titles, labels, buttons, tips, names.
QStringList texts(QWidget &window);
/// The texts of `one` that `other` has not, a line each.
QString onlyIn(const QStringList &one, const QStringList &other);

} // namespace WindowAudit
