#include "Monkey.h"

#include "Hand.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QKeySequence>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <cstdio>
#include <cstdlib>

using namespace std::chrono_literals;

namespace
{

constexpr auto hangLimit = 2min;

QString nameOf(const QWidget *widget)
{
    const QString name = widget->objectName();
    return QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') +
           (name.isEmpty() ? QStringLiteral("(no name)") : name);
}

QString textOf(const QPoint &place)
{
    return QStringLiteral("%1,%2").arg(place.x()).arg(place.y());
}

[[noreturn]] void endHanging(unsigned seed, const QStringList &events)
{
    std::fprintf(stderr, "the monkey hangs; ROOM_MONKEY_SEED=%u; the last events:\n%s\n", seed,
                 qPrintable(events.join(QLatin1Char('\n'))));
    std::abort();
}

} // namespace

Monkey::Monkey(ModuleHost &host, unsigned seed, int events, const QString &folder)
    : m_host(host)
    , m_chance(seed)
    , m_left(events)
    , m_folder(folder)
    , m_tells(qEnvironmentVariableIsSet("ROOM_MONKEY_TELLS"))
    , m_watchdog(hangLimit, [seed](const QStringList &last) { endHanging(seed, last); })
{
}

void Monkey::play()
{
    actLater();
    while (m_left > 0) {
        ++m_openings;
        m_host.action()->trigger();
        QCoreApplication::processEvents();
    }
}

// An action may open the next modal loop: each has a timer of its own.
void Monkey::actLater()
{
    QTimer::singleShot(0, this, &Monkey::act);
}

/// Events that come while the last one is still being delivered wait, unless it has opened a loop of its own.
void Monkey::act()
{
    const int level = QThread::currentThread()->loopLevel();
    if (level <= m_busyLevel) {
        actLater();
        return;
    }
    if (m_left <= 0) {
        closeAll();
        return;
    }
    actLater();
    const QScopedValueRollback<int> busy(m_busyLevel, level);
    QWidget *window = QApplication::activePopupWidget();
    if (window == nullptr)
        window = QApplication::activeModalWidget();
    if (window != nullptr && window->isVisible() && window->windowHandle() != nullptr)
        actOn(window);
}

void Monkey::actOn(QWidget *window)
{
    --m_left;
    ++m_done;
    const QString name = QString::fromLatin1(window->metaObject()->className());
    if (!m_windows.contains(name))
        m_windows << name;
    if (window->windowType() != Qt::Popup)
        QApplication::setActiveWindow(window); // there is no window manager to do it
    auto *files = qobject_cast<QFileDialog *>(window);
    if (files != nullptr)
        useFileDialog(files);
    else if (upTo(8) == 0)
        useController();
    else
        useWindow(window);
}

void Monkey::note(const QString &what)
{
    const QString event = QStringLiteral("%1 %2").arg(m_done).arg(what);
    m_watchdog.note(event);
    if (m_tells)
        std::fprintf(stderr, "%s\n", qPrintable(event));
}

void Monkey::note(const QWidget *widget, const QString &what)
{
    note(nameOf(widget->window()) + QLatin1String(": ") + nameOf(widget) + QLatin1String(": ") + what);
}

void Monkey::useController()
{
    if (upTo(3) == 0) {
        const double seconds = upTo(80) / 60.0;
        note(QStringLiteral("records for %1 s").arg(seconds));
        m_host.link.advance(seconds);
        return;
    }
    const QByteArray line = m_chance.controlLine();
    note(QString::fromLatin1(line));
    m_host.channel.control(line.toStdString());
}

void Monkey::useWindow(QWidget *window)
{
    const int choice = upTo(100);
    if (choice < 60)
        useMouse(window);
    else if (choice < 85)
        pressKey(window);
    else if (choice < 93)
        useView(window);
    else if (choice < 98)
        changeTab(window);
    else if (upTo(10) == 0) {
        note(window, QStringLiteral("close"));
        window->close();
    }
}

/// Any visible child, enabled or not, or the window itself.
QWidget *Monkey::pick(QWidget *window)
{
    constexpr int patience = 4; // with the main dialog, or it would hardly get anywhere
    QList<QWidget *> candidates = {window};
    const auto children = window->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->window() == window && child->isVisible() && !child->size().isEmpty())
            candidates << child;
    }
    QWidget *chosen = candidates.at(upTo(candidates.size()));
    const bool isWayOut = chosen->objectName() == QLatin1String("btn_ok") ||
                          chosen->objectName() == QLatin1String("btn_cancel");
    return isWayOut && upTo(patience) != 0 ? window : chosen;
}

/// A place in the window's own coordinates.
QPoint Monkey::somewhereOn(const QWidget *widget)
{
    const QPoint place(upTo(qMax(1, widget->width())), upTo(qMax(1, widget->height())));
    return widget->mapTo(widget->window(), place);
}

void Monkey::useMouse(QWidget *window)
{
    const QWidget *widget = pick(window);
    const QPoint place = somewhereOn(widget);
    const Qt::MouseButton button = m_chance.button();
    const Qt::KeyboardModifiers modifiers = m_chance.modifiers();
    const int choice = upTo(10);
    if (choice < 6) {
        note(widget, QStringLiteral("click %1 at ").arg(button) + textOf(place));
        Hand::click(window->windowHandle(), place, button, modifiers);
    } else if (choice < 7) {
        note(widget, QStringLiteral("double click at ") + textOf(place));
        Hand::doubleClick(window->windowHandle(), place, button);
    } else if (choice < 9) {
        const int clicks = (upTo(2) == 0 ? -1 : 1) * (1 + upTo(3));
        note(widget, QStringLiteral("wheel %1 at ").arg(clicks) + textOf(place));
        Hand::turnWheel(window->windowHandle(), place, clicks, modifiers);
    } else {
        drag(widget, place, somewhereOn(window));
    }
}

void Monkey::drag(const QWidget *widget, const QPoint &from, const QPoint &to)
{
    const Qt::MouseButton button = m_chance.button();
    note(widget,
         QStringLiteral("drag %1 from ").arg(button) + textOf(from) + QStringLiteral(" to ") + textOf(to));
    Hand::drag(widget->window()->windowHandle(), from, to, button, m_chance.modifiers());
}

/// In the room in 3D where there is one: a drag, the wheel that moves it, or its menu.
void Monkey::useView(QWidget *window)
{
    const auto *view = window->findChild<QWidget *>(QStringLiteral("w_view"));
    if (view == nullptr || !view->isVisible()) {
        useMouse(window);
        return;
    }
    const QPoint place = somewhereOn(view);
    const int choice = upTo(8);
    if (choice < 6) {
        drag(view, place, somewhereOn(view));
    } else if (choice < 7) {
        note(view, QStringLiteral("wheel with Ctrl at ") + textOf(place));
        Hand::turnWheel(window->windowHandle(), place, 1 - 2 * upTo(2), Qt::ControlModifier);
    } else {
        note(view, QStringLiteral("menu at ") + textOf(place));
        Hand::click(window->windowHandle(), place, Qt::RightButton, Qt::NoModifier);
    }
}

void Monkey::changeTab(QWidget *window)
{
    const auto *bar = window->findChild<QTabBar *>();
    if (bar == nullptr || bar->count() == 0 || !bar->isVisible()) {
        pressKey(window);
        return;
    }
    const int tab = upTo(bar->count());
    note(bar, QStringLiteral("tab %1").arg(tab));
    Hand::click(window->windowHandle(), bar->mapTo(window, bar->tabRect(tab).center()), Qt::LeftButton,
                Qt::NoModifier);
}

void Monkey::pressKey(QWidget *window)
{
    Stroke stroke = m_chance.stroke();
    if (stroke.key == Qt::Key_Escape && upTo(3) != 0) // or it would hardly get anywhere
        stroke.key = Qt::Key_Tab;
    note(window, QStringLiteral("key ") + QKeySequence(int(stroke.key) | int(stroke.modifiers)).toString());
    Hand::press(window->windowHandle(), stroke.key, stroke.modifiers);
}

/// Chooses a file of the folder, which may be there or not, or gives up.
void Monkey::useFileDialog(QFileDialog *dialog)
{
    auto *edit = dialog->findChild<QWidget *>(QStringLiteral("fileNameEdit"));
    if (edit == nullptr || upTo(3) == 0) {
        note(dialog, QStringLiteral("reject"));
        dialog->reject();
        return;
    }
    const QString file = QStringLiteral("points%1.txt").arg(upTo(3));
    note(dialog, file);
    edit->setProperty("text", m_folder + QLatin1Char('/') + file);
    QTest::keyClick(edit, Qt::Key_Return);
}

void Monkey::closeAll()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    QWidget *window = QApplication::activeModalWidget();
    if (window == nullptr)
        return;
    QTimer::singleShot(0, this, &Monkey::closeAll);
    if (auto *dialog = qobject_cast<QDialog *>(window))
        dialog->done(QDialog::Rejected);
    else
        window->close();
}
