#include "WorkProgress.h"

#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "PiecewiseWork.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProgressBar>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

constexpr auto delay = 300ms;
/// How long events wait while something is done.
constexpr auto patience = 20ms;

/// False when there is nothing left to do.
bool workForAWhile(PiecewiseWork &work)
{
    const QDeadlineTimer deadline(patience);
    do {
        if (!work.doPiece())
            return false;
    } while (!deadline.hasExpired());
    return true;
}

} // namespace

bool WorkProgress::doAll(PiecewiseWork &work, QWidget *window, const QString &text)
{
    const ObjectWatch watch(window);
    const QDeadlineTimer deadline(delay);
    while (!deadline.hasExpired()) {
        if (!workForAWhile(work))
            return true;
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (!watch)
            return false;
    }
    return ModalWindow<WorkProgress>(work, text, window).exec() == QDialog::Accepted && watch;
}

WorkProgress::WorkProgress(PiecewiseWork &work, const QString &text, QWidget *window)
    : QProgressDialog(text, tr("Cancel"), 0, 100, window)
    , m_work(work)
    , m_bar(new QProgressBar)
{
    setObjectName(QStringLiteral("workProgress"));
    setWindowTitle(window->windowTitle());
    setWindowModality(Qt::WindowModal);
    setAutoClose(false);
    setAutoReset(false);
    setMinimumDuration(0);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    setBar(m_bar);
    m_bar->setAccessibleName(text);
    m_bar->setValue(m_work.percent());
    connect(&m_timer, &QTimer::timeout, this, &WorkProgress::goOn);
    m_timer.start(0ms);
}

/// The bar is told directly: QProgressDialog::setValue() would run the event loop, which may destroy this.
void WorkProgress::goOn()
{
    if (!workForAWhile(m_work))
        accept();
    else
        m_bar->setValue(m_work.percent());
}
