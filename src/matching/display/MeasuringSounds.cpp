#include "MeasuringSounds.h"

#include <chrono>

using namespace std::chrono_literals;

namespace
{

/// Longer than the desktop's own signal lasts.
constexpr auto pause = 350ms;

/// Lives as long as the host: the windows come and go, and nothing is stored.
bool &sounding()
{
    static bool on = true;
    return on;
}

} // namespace

MeasuringSounds::MeasuringSounds(QObject *parent)
    : QObject(parent)
{
    m_second.setSingleShot(true);
    m_second.setInterval(pause);
    connect(&m_second, &QTimer::timeout, this, &MeasuringSounds::beepUnlessOff);
}

bool MeasuringSounds::areOn()
{
    return sounding();
}

void MeasuringSounds::turnOn(bool on)
{
    sounding() = on;
}

void MeasuringSounds::pointTaken()
{
    m_second.stop();
    beepUnlessOff();
}

void MeasuringSounds::measurementFailed()
{
    m_second.start();
    beepUnlessOff();
}

void MeasuringSounds::beepUnlessOff()
{
    if (areOn())
        emit beep();
}
