#pragma once

#include <QString>

class QWidget;

/// Asks under which name a text file is to be saved.
namespace SaveQuestion
{

/// The name with its ending, or nothing when the person gives up. The dialog begins in the folder that was
/// used last while the program runs, appends ".txt" to a name without an ending, and asks before a file of
/// that final name is replaced.
QString ask(QWidget *parent, const QString &title, const QString &filter);

} // namespace SaveQuestion
