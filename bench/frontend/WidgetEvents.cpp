#include "WidgetEvents.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace WidgetEvents
{

QWidget *find(const QWidget *window, const QString &name)
{
    const auto children = window->findChildren<QWidget *>(name);
    for (QWidget *child : children) {
        if (child->isVisible())
            return child;
    }
    return nullptr;
}

bool isReady(QWidget *widget)
{
    if (widget == nullptr || !widget->isVisible())
        return false;
    QWidget *window = widget->window();
    if (window->windowHandle() == nullptr || !window->windowHandle()->isExposed())
        return false;
    if (QApplication::activeWindow() == window)
        return true;
    window->activateWindow();
    return false;
}

void click(QWidget *widget)
{
    click(widget, widget->rect().center());
}

void click(QWidget *widget, const QPoint &position)
{
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      widget->mapTo(widget->window(), position));
}

void pressKey(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(widget->window()->windowHandle(), key, modifiers);
}

void type(QWidget *editor, const QString &text)
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (line == nullptr)
        line = editor->findChild<QLineEdit *>();
    click(line != nullptr ? line : editor);
    pressKey(editor, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : text)
        QTest::keyClick(editor->window()->windowHandle(), letter.toLatin1());
    pressKey(editor, Qt::Key_Tab);
}

} // namespace WidgetEvents
