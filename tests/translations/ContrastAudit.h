#pragma once

#include <QStringList>

class QWidget;

/// Measures in a window's picture how well its texts can be read.
namespace ContrastAudit
{

/// The enabled texts whose contrast to their background is below 4.5 : 1 (3 : 1 for the warnings in bold
/// red), one sentence each; empty when all can be read. Looked at are labels, buttons, check boxes, titles of
/// groups, tabs, headers and cells of tables, fields of numbers, lists and text, and what stands on progress
/// bars, at their start, half way and at their end. Selections are taken away.
QStringList faintTexts(QWidget &window);

/// How many texts were looked at, so that nobody takes an empty picture for a readable one.
int textCount(QWidget &window);

} // namespace ContrastAudit
