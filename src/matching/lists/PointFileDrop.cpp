#include "PointFileDrop.h"

#include "ListEditing.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace
{

/// Empty unless exactly one file of this machine is meant.
QString fileOf(const QDropEvent &event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

PointFileDrop::PointFileDrop(ListEditing &editing, QWidget *window)
    : QObject(window)
    , m_editing(editing)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

/// The file is loaded after the event: whoever drags it waits for that, and loading may ask something.
bool PointFileDrop::eventFilter(QObject *watched, QEvent *event)
{
    const bool drops = event->type() == QEvent::Drop;
    if (!drops && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QObject::eventFilter(watched, event);
    auto *drag = static_cast<QDropEvent *>(event);
    const QString file = fileOf(*drag);
    if (file.isEmpty() || !m_editing.mayChange()) {
        drag->ignore();
        return true;
    }
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (drops)
        QTimer::singleShot(0, &m_editing, [this, file] { m_editing.loadFile(file); });
    return true;
}
