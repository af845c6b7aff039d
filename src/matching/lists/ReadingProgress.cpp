#include "ReadingProgress.h"

#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "PiecewiseReading.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProgressBar>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

constexpr auto delay = 300ms;
/// How long events wait while something is read.
constexpr auto patience = 20ms;

/// False when there is nothing left to read.
bool readForAWhile(PiecewiseReading &reading)
{
    const QDeadlineTimer deadline(patience);
    do {
        if (!reading.readPiece())
            return false;
    } while (!deadline.hasExpired());
    return true;
}

} // namespace

bool ReadingProgress::readAll(PiecewiseReading &reading, QWidget *window, const QString &text)
{
    const ObjectWatch watch(window);
    const QDeadlineTimer deadline(delay);
    while (!deadline.hasExpired()) {
        if (!readForAWhile(reading))
            return true;
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!watch)
            return false;
    }
    return ModalWindow<ReadingProgress>(reading, text, window).exec() == QDialog::Accepted && watch;
}

ReadingProgress::ReadingProgress(PiecewiseReading &reading, const QString &text, QWidget *window)
    : QProgressDialog(text, tr("Cancel"), 0, 100, window)
    , m_reading(reading)
    , m_bar(new QProgressBar)
{
    setObjectName(QStringLiteral("readingProgress"));
    setWindowTitle(window->windowTitle());
    setWindowModality(Qt::WindowModal);
    setAutoClose(false);
    setAutoReset(false);
    setMinimumDuration(0);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    setBar(m_bar);
    m_bar->setAccessibleName(text);
    m_bar->setValue(m_reading.percent());
    connect(&m_timer, &QTimer::timeout, this, &ReadingProgress::readOn);
    m_timer.start(0ms);
}

/// The bar is told directly: QProgressDialog::setValue() would run the event loop, which may destroy this.
void ReadingProgress::readOn()
{
    if (!readForAWhile(m_reading))
        accept();
    else
        m_bar->setValue(m_reading.percent());
}
