#include "SearchProgress.h"

#include "MatchingReport.h"

#include <QProgressBar>
#include <QProgressDialog>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

/// Shorter searches need no display. The search is already a tenth of a second old when it is told here.
constexpr auto delay = 200ms;

} // namespace

SearchProgress::SearchProgress(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    connect(&m_delay, &QTimer::timeout, this, &SearchProgress::show);
}

void SearchProgress::start()
{
    stop();
    m_delay.start();
}

void SearchProgress::stop()
{
    m_delay.stop();
    if (m_display.isNull())
        return;
    m_display->disconnect(this);
    m_display->hide();
    m_display->deleteLater();
    m_display.clear();
}

void SearchProgress::show()
{
    constexpr int unknownEnd = 0;
    m_display = new QProgressDialog(QString(), QString(), 0, unknownEnd, m_window);
    m_display->setObjectName(QStringLiteral("searchProgress"));
    m_display->setWindowModality(Qt::WindowModal);
    m_display->setAutoClose(false);
    m_display->setAutoReset(false);
    connect(m_display, &QProgressDialog::canceled, this, &SearchProgress::cancelled);
    showTexts();
    m_display->show();
}

void SearchProgress::showTexts()
{
    if (m_display.isNull())
        return;
    m_display->setWindowTitle(m_window->windowTitle());
    m_display->setLabelText(MatchingReport::searching());
    m_display->setCancelButtonText(tr("Cancel"));
    m_display->findChild<QProgressBar *>()->setAccessibleName(MatchingReport::searching());
}
