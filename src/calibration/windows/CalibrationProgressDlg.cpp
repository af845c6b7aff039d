#include "CalibrationProgressDlg.h"

#include "CalibrationIcon.h"
#include "CalibrationKind.h"
#include "CalibrationRun.h"
#include "CameraGrid.h"
#include "CountdownDlg.h"
#include "HideWatch.h"
#include "ModalWindow.h"
#include "ObjectWatch.h"
#include "PercentText.h"
#include "ProgressSentences.h"
#include "Prompt.h"
#include "ui_CalibrationProgressDialog.h"

#include <QEvent>
#include <QPixmap>
#include <QScreen>

using namespace std::chrono_literals;

namespace
{

constexpr int ticksPerCameraRefresh = 3;

Qt::WindowFlags flagsFor(const QString &kind)
{
    if (kind == QLatin1String(CalibrationKind::reflexScan))
        return Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint;
    return Qt::Dialog | Qt::WindowCloseButtonHint;
}

} // namespace

CalibrationProgressDlg::CalibrationProgressDlg(IOManager *commands, QWidget *parent,
                                               const BackendVersions *versions, bool pausesBetweenSteps)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::CalibrationProgressDialog>())
    , m_controller(commands, versions)
    , m_run(std::make_shared<CalibrationRun>(m_controller, pausesBetweenSteps))
    , m_pausesBetweenSteps(pausesBetweenSteps)
    , m_showsCameras(m_controller.supports(ControllerFeature::CameraProgress))
    , m_countdownTick(1000ms)
{
    m_ui->setupUi(this);
    setWindowIcon(calibrationIcon());
    showPercentBeside(m_ui->progressBar_overall, m_ui->label_percent);
    showRemainingTime();
    m_sentences = std::make_unique<ProgressSentences>(m_ui->label_info, m_ui->label_warning);
    m_cameras = new CameraGrid(m_ui->gridLayout_cam, commands, versions, this);
    m_ui->frame_name->setVisible(!m_showsCameras);
    m_ui->frame_grid->setVisible(m_showsCameras);
    m_ui->scrollArea_cam->setVisible(m_showsCameras);

    setPollInterval(200ms);
    setStallInterval(5000ms);
    m_warningTimer.setSingleShot(true);
    m_warningTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_statusTimer, &QTimer::timeout, this, &CalibrationProgressDlg::update_cal_status);
    connect(&m_statusTimer, &QTimer::timeout, this, &CalibrationProgressDlg::update_cam_status);
    connect(&m_warningTimer, &QTimer::timeout, this, &CalibrationProgressDlg::show_warning);
    connect(m_ui->pb_cancel, &QPushButton::clicked, this, &CalibrationProgressDlg::reject);
}

CalibrationProgressDlg::~CalibrationProgressDlg()
{
    m_run->end();
    if (!m_countdown.isNull())
        m_countdown->reject(); // a child of another window
}

int CalibrationProgressDlg::start(const QString &kind)
{
    if (m_run->isInUse())
        return Rejected;
    m_run = std::make_shared<CalibrationRun>(m_controller, m_pausesBetweenSteps);
    const ObjectWatch self(this);
    const int result = follow(kind);
    if (!self)
        return Rejected;
    stopTimers();
    m_run->end();
    return result;
}

int CalibrationProgressDlg::follow(const QString &kind)
{
    const ObjectWatch self(this);
    const HideWatch behind(this);
    const std::shared_ptr<CalibrationRun> run = m_run;
    setWindowFlags(flagsFor(kind));
    run->prepare(kind.toLatin1());
    if (!self || behind.isHidden())
        return Rejected;
    if (run->pauseSeconds() != 0 && !countDown(run->pauseSeconds()))
        return Rejected;
    if (!self)
        return Rejected;
    prepareScreen(kind);
    if (!self || behind.isHidden() || !run->begin() || !self)
        return Rejected;
    const int result = behind.isHidden() ? int(Rejected) : exec();
    if (self)
        leaveUnended();
    return result;
}

/// The end of the application, or a host that hides the window or the one behind it, ends exec() without
/// asking. A calibration that nobody follows any more is cancelled.
void CalibrationProgressDlg::leaveUnended()
{
    const ObjectWatch self(this);
    reject();
    if (self)
        hide();
}

void CalibrationProgressDlg::prepareScreen(const QString &kind)
{
    m_information = ProgressSentences::information(*m_run, kind);
    m_ui->pb_cancel->setHidden(kind.contains(QLatin1String(CalibrationKind::reflexScan)));
    if (m_run->steps() == 1)
        m_sentences->clearInfo();
    const ObjectWatch self(this);
    if (m_showsCameras)
        m_cameras->build();
    if (!self)
        return;
    if (m_showsCameras) {
        m_cameras->fit(m_ui->scrollArea_cam, screen()->availableSize());
        layout()->activate();
        resize(minimumSizeHint());
    }
    m_ui->progressBar_overall->setValue(0);
    m_cameras->reset();
    m_isFinished = false;
    m_statusTimer.start();
}

void CalibrationProgressDlg::update_cal_status()
{
    const ObjectWatch self(this);
    const std::shared_ptr<CalibrationRun> run = m_run;
    const CalibrationPoll poll = run->poll();
    if (!self)
        return;
    switch (poll.state) {
    case CalibrationPoll::State::Unchanged:
        return;
    case CalibrationPoll::State::Running:
        showProgress(poll);
        return;
    case CalibrationPoll::State::Done:
        stopPolling();
        accept();
        return;
    case CalibrationPoll::State::Failed:
        finishWithError();
        return;
    case CalibrationPoll::State::Pause:
        pauseBetweenSteps();
        return;
    }
}

void CalibrationProgressDlg::showProgress(const CalibrationPoll &poll)
{
    if (poll.hasMoved)
        watchForStall(*poll.hasMoved);
    if (poll.overallPercent)
        m_ui->progressBar_overall->setValue(*poll.overallPercent);
    if (poll.remainingSeconds) {
        m_remainingSeconds = poll.remainingSeconds;
        showRemainingTime();
    }
    if (poll.firstStepIsComplete && !m_isFinished && !m_sentences->hasInfo())
        showCalculating();
}

void CalibrationProgressDlg::showRemainingTime()
{
    m_ui->label_remaining_time->setText(
        m_remainingSeconds ? tr("remaining time: %1 seconds").arg(*m_remainingSeconds) : QString());
}

void CalibrationProgressDlg::watchForStall(bool hasMoved)
{
    if (hasMoved) {
        m_warningTimer.stop();
        m_sentences->clearWarning();
    } else if (!m_warningTimer.isActive() && !m_isFinished) {
        m_warningTimer.start();
    }
}

void CalibrationProgressDlg::showCalculating()
{
    m_isFinished = true;
    m_warningTimer.stop();
    m_sentences->showCalculating();
}

void CalibrationProgressDlg::finishWithError()
{
    stopPolling();
    const ObjectWatch self(this);
    const std::shared_ptr<CalibrationRun> run = m_run;
    const QByteArray error = run->fetchError();
    if (self)
        Prompt::ask(this, QMessageBox::Critical, tr("Calibration Error"), tr(error.constData()),
                    QMessageBox::Ok);
    if (self)
        done(Rejected);
}

void CalibrationProgressDlg::pauseBetweenSteps()
{
    stopPolling();
    const ObjectWatch self(this);
    const std::shared_ptr<CalibrationRun> run = m_run;
    const bool goesOn = countDown(run->pauseSeconds());
    if (!self || !run->isInUse())
        return;
    if (goesOn) {
        run->resume();
    } else {
        run->end();
        done(Rejected);
    }
    m_isFinished = false;
    m_statusTimer.start();
}

bool CalibrationProgressDlg::countDown(int seconds)
{
    QWidget *parentThatIsSeen = isVisible() ? this : parentWidget();
    ModalWindow<CountdownDlg> countdown(parentThatIsSeen);
    m_countdown = countdown.operator->();
    countdown->setTick(m_countdownTick);
    countdown->setCountdown(QString(), seconds);
    return countdown.exec() == Accepted;
}

void CalibrationProgressDlg::stopPolling()
{
    m_isFinished = true;
    stopTimers();
    m_sentences->hideWarning();
}

void CalibrationProgressDlg::reject()
{
    if (!m_run->canBeStopped())
        return;
    stopTimers();
    const ObjectWatch self(this);
    const std::shared_ptr<CalibrationRun> run = m_run;
    run->stop();
    if (!self)
        return;
    done(Rejected); // a countdown goes with the window behind it
}

void CalibrationProgressDlg::show_warning()
{
    m_sentences->showWarning();
}

void CalibrationProgressDlg::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    const ProgressSentences::Shown shown = m_sentences->shown();
    m_ui->retranslateUi(this);
    showRemainingTime();
    m_sentences->renew(shown);
}

void CalibrationProgressDlg::update_cam_status()
{
    if (m_showsCameras && ++m_ticks % ticksPerCameraRefresh == 0)
        m_cameras->refresh(m_run);
}

void CalibrationProgressDlg::onReceiveCameraTabChanges(const QString &msg)
{
    if (m_showsCameras)
        m_cameras->setTabNumbers(msg);
}

void CalibrationProgressDlg::onReceiveMostActiveChanges(const QString &msg)
{
    if (m_showsCameras)
        m_cameras->markMostActive(msg);
}
