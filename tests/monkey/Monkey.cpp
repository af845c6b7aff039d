#include "Monkey.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMenu>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>

namespace
{

constexpr int wholeTurn = 120;
constexpr int mostClosings = 50;

const Qt::Key keys[] = {Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Up,
                        Qt::Key_Down,     Qt::Key_Left,    Qt::Key_Right, Qt::Key_Home,   Qt::Key_End,
                        Qt::Key_Delete,   Qt::Key_F2,      Qt::Key_F5,    Qt::Key_PageUp, Qt::Key_Escape,
                        Qt::Key_1,        Qt::Key_9,       Qt::Key_0,     Qt::Key_Minus,  Qt::Key_Period,
                        Qt::Key_Comma,    Qt::Key_E,       Qt::Key_A,     Qt::Key_M,      Qt::Key_Z,
                        Qt::Key_Backspace};
const Qt::KeyboardModifiers modifiers[] = {Qt::NoModifier,    Qt::NoModifier,  Qt::NoModifier,
                                           Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier};

const char *const controls[] = {
    "sim tool 1 tracked no",
    "sim tool 1 tracked yes",
    "sim tool 1 button 1 click",
    "sim device 1 button 1 click",
    "sim tool 1 measure",
    "sim tool 1 tremor 0",
    "sim tool 1 tremor 2",
    "sim available no",
    "sim available yes",
    "sim locked yes",
    "sim locked no",
    "sim camera 1 room none",
    "sim camera 1 room yes",
    "sim record cut 6dmt2 40",
    "sim record clear",
    "sim ts jump -100",
    "sim fault fail 1 \"\"",
    "sim fault fail 3 \"\" -1",
    "sim fault answer 1 \"\" = \"1,5 x nan\"",
    "sim fault answer 2 \"\" =",
    "sim fault long 1 \"\" 5000",
    "sim fault delay 1 \"\" 2 events",
    "sim fault restart",
    "sim fault clear",
};

} // namespace

Monkey::Monkey(ModuleHost &host, unsigned seed, int events, const QString &folder)
    : m_host(host)
    , m_random(seed)
    , m_left(events)
    , m_folder(folder)
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

void Monkey::act()
{
    if (m_left <= 0) {
        closeAll();
        return;
    }
    actLater();
    QWidget *window = QApplication::activePopupWidget();
    if (window == nullptr)
        window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible())
        return;
    --m_left;
    ++m_done;
    const QString name = QString::fromLatin1(window->metaObject()->className());
    if (!m_windows.contains(name))
        m_windows << name;
    auto *files = qobject_cast<QFileDialog *>(window);
    if (files != nullptr)
        useFileDialog(files);
    else if (upTo(8) == 0)
        useController();
    else
        useWindow(window);
}

void Monkey::useController()
{
    constexpr int mostTouches = 6;
    const int count = static_cast<int>(std::size(controls));
    const int choice = upTo(count + 10);
    if (choice < count)
        m_host.channel.control(controls[choice]);
    else if (choice < count + 3)
        m_host.channel.control("sim tool 1 touch " + std::to_string(1 + upTo(mostTouches)));
    else
        m_host.link.advance(upTo(80) / 60.0);
}

void Monkey::useWindow(QWidget *window)
{
    const QPointer<QWidget> widget = pick(window);
    if (widget.isNull())
        return;
    const int choice = upTo(20);
    if (choice < 11)
        clickSomewhere(widget, choice == 0 ? Qt::RightButton : Qt::LeftButton);
    else if (choice < 18)
        pressKey(widget);
    else if (choice < 19)
        turnWheel(widget);
    else if (upTo(10) == 0)
        window->close();
}

/// Any visible and enabled child, or the window itself.
QWidget *Monkey::pick(QWidget *window)
{
    constexpr int patience = 4; // with the main dialog, or it would hardly get anywhere
    QList<QWidget *> candidates = {window};
    for (QWidget *child : window->findChildren<QWidget *>()) {
        if (child->window() == window && child->isVisible() && child->isEnabled())
            candidates << child;
    }
    QWidget *chosen = candidates.at(upTo(candidates.size()));
    const bool isWayOut = chosen->objectName() == QLatin1String("btn_ok") ||
                          chosen->objectName() == QLatin1String("btn_cancel");
    return isWayOut && upTo(patience) != 0 ? window : chosen;
}

/// Chooses a file of the folder, which may be there or not, or gives up.
void Monkey::useFileDialog(QFileDialog *dialog)
{
    auto *edit = dialog->findChild<QWidget *>(QStringLiteral("fileNameEdit"));
    if (edit == nullptr || upTo(3) == 0) {
        dialog->reject();
        return;
    }
    edit->setProperty("text", m_folder + QStringLiteral("/points%1.txt").arg(upTo(3)));
    QTest::keyClick(edit, Qt::Key_Return);
}

void Monkey::pressKey(QWidget *widget)
{
    int key = upTo(static_cast<int>(std::size(keys)));
    if (keys[key] == Qt::Key_Escape) // or it would hardly get anywhere
        key = upTo(static_cast<int>(std::size(keys)));
    const int modifier = upTo(static_cast<int>(std::size(modifiers)));
    QTest::keyClick(widget, keys[key], modifiers[modifier]);
}

void Monkey::clickSomewhere(QWidget *widget, Qt::MouseButton button)
{
    const QPoint place(upTo(qMax(1, widget->width())), upTo(qMax(1, widget->height())));
    if (upTo(5) == 0)
        QTest::mouseDClick(widget, button, Qt::NoModifier, place);
    else
        QTest::mouseClick(widget, button, Qt::NoModifier, place);
}

void Monkey::turnWheel(QWidget *widget)
{
    const QPoint place = widget->rect().center();
    const int delta = (upTo(2) == 0 ? -1 : 1) * wholeTurn * (1 + upTo(3));
    const Qt::KeyboardModifiers keyState = upTo(2) == 0 ? Qt::NoModifier : Qt::ControlModifier;
    QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton, keyState,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void Monkey::closeAll()
{
    for (int i = 0; i < mostClosings; ++i) {
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
        return;
    }
}
