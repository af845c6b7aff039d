#pragma once

class ListEditing;
class QTableWidget;

/// The keys that do something to a list while its table has the focus, and those that undo and redo in the
/// whole window. An open cell editor keeps its own.
namespace ListKeys
{

/// The keys go with the tables; the editing must live as long.
void connectTo(ListEditing &editing, QTableWidget *references, QTableWidget *measured);

} // namespace ListKeys
