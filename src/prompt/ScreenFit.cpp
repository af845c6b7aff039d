#include "ScreenFit.h"

#include <QScreen>
#include <QWidget>

namespace
{

/// What a window manager is taken to put around a window; nobody knows before the window is shown.
constexpr int titleHeight = 40;
constexpr int borderWidth = 8;

} // namespace

void fitToScreen(QWidget *window)
{
    const QWidget *place = window->parentWidget() ? window->parentWidget()->window() : window;
    const QSize free = place->screen()->availableSize() - QSize(borderWidth, titleHeight);
    window->resize(window->size().boundedTo(free));
}
