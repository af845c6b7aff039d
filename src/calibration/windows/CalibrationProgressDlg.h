#pragma once

#include "CalibrationAccess.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

class CalibrationRun;
class CameraGrid;
class CountdownDlg;
class IOManager;
class ProgressSentences;
struct BackendVersions;
struct CalibrationPoll;

namespace Ui
{
class CalibrationProgressDialog;
}

/// Starts a calibration that the controller performs, follows it and shows how far it is.
///
/// Made on the heap for one start() and deleted after it. While a start is under way the dialog may be
/// destroyed together with its parent; start() then returns 0.
class CalibrationProgressDlg : public QDialog
{
    Q_OBJECT

public:
    /// `pausesBetweenSteps`: whether a calibration of two steps counts down a pause between them. Neither the
    /// channel nor the versions are owned.
    CalibrationProgressDlg(IOManager *commands, QWidget *parent, const BackendVersions *versions,
                           bool pausesBetweenSteps);
    ~CalibrationProgressDlg() override;

    /// Runs a calibration of this kind (the controller's name, such as "room") to its end. Returns 1 when it
    /// succeeded; 0 when it failed, was cancelled, or could not be started. No timer runs afterwards.
    int start(const QString &kind);

    /// What the controller says about the calibration that was started last. It is not shown.
    const QString &information() const { return m_information; }

    /// The rhythms, for runs in shortened time: 200 ms, 5000 ms and 1000 ms at first.
    void setPollInterval(std::chrono::milliseconds interval) { m_statusTimer.setInterval(interval); }
    void setStallInterval(std::chrono::milliseconds interval) { m_warningTimer.setInterval(interval); }
    void setCountdownTick(std::chrono::milliseconds tick) { m_countdownTick = tick; }

public slots:
    void update_cal_status();
    void reject() override;
    void accept() override { QDialog::accept(); }
    void show_warning();
    void update_cam_status();
    /// The tab of each camera, as CameraMessages::tabs() reads it.
    void onReceiveCameraTabChanges(const QString &msg);
    /// The most active cameras, as CameraMessages::holdsCamera() reads them.
    void onReceiveMostActiveChanges(const QString &msg);

protected:
    void changeEvent(QEvent *event) override;

private:
    int follow(const QString &kind);
    void leaveUnended();
    void prepareScreen(const QString &kind);
    void showProgress(const CalibrationPoll &poll);
    void watchForStall(bool hasMoved);
    void showCalculating();
    void showRemainingTime();
    void finishWithError();
    void pauseBetweenSteps();
    bool countDown(int seconds);
    void stopPolling();
    void stopTimers()
    {
        m_statusTimer.stop();
        m_warningTimer.stop();
    }

    std::unique_ptr<Ui::CalibrationProgressDialog> m_ui;
    CalibrationAccess m_controller;
    QTimer m_statusTimer{this};
    std::shared_ptr<CalibrationRun> m_run;
    QString m_information;
    std::optional<int> m_remainingSeconds;
    bool m_isFinished = false;
    bool m_pausesBetweenSteps;
    QTimer m_warningTimer{this};
    CameraGrid *m_cameras;
    std::unique_ptr<ProgressSentences> m_sentences;
    QPointer<CountdownDlg> m_countdown;
    int m_ticks = 0;
    bool m_showsCameras;
    std::chrono::milliseconds m_countdownTick;
};
