#include "Repertoire.h"

namespace
{

constexpr Qt::Key keys[] = {Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Up,
                            Qt::Key_Down,     Qt::Key_Left,    Qt::Key_Right, Qt::Key_Home,   Qt::Key_End,
                            Qt::Key_Delete,   Qt::Key_F2,      Qt::Key_F5,    Qt::Key_PageUp, Qt::Key_Escape,
                            Qt::Key_1,        Qt::Key_9,       Qt::Key_0,     Qt::Key_Minus,  Qt::Key_Period,
                            Qt::Key_Comma,    Qt::Key_E,       Qt::Key_A,     Qt::Key_M,      Qt::Key_Z,
                            Qt::Key_Backspace};

/// The keys of the dialogs themselves.
const Stroke dialogStrokes[] = {{Qt::Key_F5, Qt::NoModifier},
                                {Qt::Key_F5, Qt::ShiftModifier},
                                {Qt::Key_A, Qt::AltModifier},
                                {Qt::Key_F4, Qt::NoModifier},
                                {Qt::Key_Escape, Qt::NoModifier}};

const Qt::KeyboardModifiers modifierKeys[] = {Qt::NoModifier,    Qt::NoModifier,  Qt::NoModifier,
                                              Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier};

constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,
                                       Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

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
    "sim fault long 1 \"\" 5000",
    "sim fault delay 1 \"\" 2 events",
    "sim fault fail every \"\"",
    "sim fault disconnect",
    "sim fault restart",
    "sim fault clear",
    "sim fault clear",
    "sim fault clear",
    "sim fault clear",
};

const char *const nonsense[] = {
    "", " \"1,5 x nan\"", " \"nan nan inf -inf 1e300 0 0 0 nan\"", " 99999999999", " none", " yes"};

} // namespace

int Repertoire::upTo(int count)
{
    return std::uniform_int_distribution<int>(0, count - 1)(m_random);
}

Stroke Repertoire::stroke()
{
    constexpr int usualStrokes = 5;
    if (upTo(usualStrokes + 1) == usualStrokes)
        return oneOf(dialogStrokes);
    const Qt::Key key = oneOf(keys);
    return {key, modifiers()};
}

Qt::KeyboardModifiers Repertoire::modifiers()
{
    return oneOf(modifierKeys);
}

Qt::MouseButton Repertoire::button()
{
    return oneOf(buttons);
}

QByteArray Repertoire::controlLine()
{
    constexpr int points = 6;
    const int choice = upTo(6);
    if (choice < 3)
        return oneOf(controls);
    return choice < 5 ? fault() : "sim tool 1 touch " + QByteArray::number(1 + upTo(points));
}

QByteArray Repertoire::fault()
{
    constexpr int farthestCall = 30;
    const QByteArray call = QByteArray::number(1 + upTo(farthestCall)) + " \"\"";
    switch (upTo(3)) {
    case 0:
        return "sim fault fail " + call;
    case 1:
        return "sim fault done-but-fail " + call + " -1";
    default:
        return "sim fault answer " + call + " =" + oneOf(nonsense);
    }
}
