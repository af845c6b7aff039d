#include "FirstControl.h"

#include <QWidget>

QWidget *firstControlOf(QWidget *page)
{
    const auto takesKeys = [page](const QWidget *control) {
        return page->isAncestorOf(control) && (control->focusPolicy() & Qt::TabFocus) != 0 &&
               control->isEnabled() && control->isVisibleTo(page);
    };
    QWidget *control = page->nextInFocusChain();
    while (control != page && !takesKeys(control))
        control = control->nextInFocusChain();
    return control != page ? control : nullptr;
}
