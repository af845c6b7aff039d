#pragma once

#include <QStringList>

class QWidget;

/// What is wrong with a window that is shown, one sentence per fault; empty when all is well.
namespace WindowAudit
{

/// Texts that get less room than they need, and windows larger than the screen.
QStringList clippedTexts(const QWidget &window);
/// Letters that two visible controls answer to, and letters that not every keyboard has.
QStringList mnemonicFaults(const QWidget &window);
/// Controls that say no name to a screen reader.
QStringList namelessControls(QWidget &window);
/// Steps of the Tab key that lead backwards in the order of the layouts.
QStringList tabOrderFaults(QWidget &window);
/// Texts whose contrast to their background is below 4.5 : 1 (3 : 1 for the warnings in bold red).
QStringList faintTexts(const QWidget &window);

/// Every text of the window: titles, labels, buttons, tips, names.
QStringList texts(QWidget &window);

} // namespace WindowAudit
