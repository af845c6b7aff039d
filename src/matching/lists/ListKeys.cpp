#include "ListKeys.h"

#include "ListEditing.h"

#include <QShortcut>
#include <QTableWidget>

namespace
{

using Operation = void (ListEditing::*)();

void addKey(const QKeySequence &key, QWidget *owner, Qt::ShortcutContext context, ListEditing &editing,
            Operation operation)
{
    auto *shortcut = new QShortcut(key, owner);
    shortcut->setContext(context);
    QObject::connect(shortcut, &QShortcut::activated, &editing, operation);
}

} // namespace

namespace ListKeys
{

void connectTo(ListEditing &editing, QTableWidget *references, QTableWidget *measured)
{
    QWidget *window = references->window();
    addKey(Qt::Key_Delete, references, Qt::WidgetShortcut, editing, &ListEditing::removeSelectedReference);
    addKey(Qt::Key_Delete, measured, Qt::WidgetShortcut, editing, &ListEditing::removeSelectedMeasured);
    addKey(Qt::CTRL + Qt::Key_C, references, Qt::WidgetShortcut, editing, &ListEditing::copyReferences);
    addKey(Qt::CTRL + Qt::Key_C, measured, Qt::WidgetShortcut, editing, &ListEditing::copyMeasured);
    addKey(Qt::CTRL + Qt::Key_V, references, Qt::WidgetShortcut, editing, &ListEditing::pasteReferences);
    addKey(Qt::CTRL + Qt::Key_Z, window, Qt::WindowShortcut, editing, &ListEditing::undo);
    addKey(Qt::CTRL + Qt::SHIFT + Qt::Key_Z, window, Qt::WindowShortcut, editing, &ListEditing::redo);
}

} // namespace ListKeys
