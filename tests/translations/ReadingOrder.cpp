#include "ReadingOrder.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QBoxLayout>
#include <QComboBox>
#include <QMainWindow>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace
{

void addInReadingOrder(QWidget *widget, QList<QWidget *> &order);

void addInReadingOrder(QLayout *layout, QList<QWidget *> &order)
{
    QList<QLayoutItem *> items;
    for (int i = 0; i < layout->count(); ++i)
        items << layout->itemAt(i);
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    const bool isRow = box != nullptr && (box->direction() == QBoxLayout::LeftToRight ||
                                          box->direction() == QBoxLayout::RightToLeft);
    std::stable_sort(items.begin(), items.end(), [isRow, box](QLayoutItem *a, QLayoutItem *b) {
        const QPoint first = a->geometry().topLeft();
        const QPoint second = b->geometry().topLeft();
        if (box != nullptr)
            return isRow ? first.x() < second.x() : first.y() < second.y();
        const int sameRow = 8;
        return std::abs(first.y() - second.y()) > sameRow ? first.y() < second.y() : first.x() < second.x();
    });
    for (QLayoutItem *item : qAsConst(items)) {
        if (item->widget() != nullptr)
            addInReadingOrder(item->widget(), order);
        else if (item->layout() != nullptr)
            addInReadingOrder(item->layout(), order);
    }
}

/// A window of Qt's own may place its parts without a layout.
void addChildrenInReadingOrder(const QWidget *widget, QList<QWidget *> &order)
{
    QList<QWidget *> children = widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    std::stable_sort(children.begin(), children.end(), [](const QWidget *a, const QWidget *b) {
        return a->y() != b->y() ? a->y() < b->y() : a->x() < b->x();
    });
    for (QWidget *child : children) {
        if (!child->isWindow())
            addInReadingOrder(child, order);
    }
}

void addInReadingOrder(QWidget *widget, QList<QWidget *> &order)
{
    if (!widget->isVisible())
        return;
    if (auto *tabs = qobject_cast<QTabWidget *>(widget)) {
        order << tabs->tabBar();
        addInReadingOrder(tabs->currentWidget(), order);
    } else if (const auto *area = qobject_cast<QScrollArea *>(widget)) {
        if ((area->focusPolicy() & Qt::TabFocus) != 0)
            order << widget; // the keys scroll it
        addInReadingOrder(area->widget(), order);
    } else if (const auto *main = qobject_cast<QMainWindow *>(widget)) {
        addInReadingOrder(main->centralWidget(), order);
    } else if (widget->layout() != nullptr && !ReadingOrder::isWholeControl(widget)) {
        addInReadingOrder(widget->layout(), order);
    } else if (widget->isWindow()) {
        addChildrenInReadingOrder(widget, order);
    } else {
        order << widget;
    }
}

} // namespace

namespace ReadingOrder
{

bool isWholeControl(const QWidget *widget)
{
    return qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
           qobject_cast<const QComboBox *>(widget) != nullptr ||
           qobject_cast<const QAbstractItemView *>(widget) != nullptr ||
           qobject_cast<const QTextEdit *>(widget) != nullptr;
}

QList<QWidget *> of(QWidget &window)
{
    QList<QWidget *> order;
    addInReadingOrder(&window, order);
    return order;
}

} // namespace ReadingOrder
