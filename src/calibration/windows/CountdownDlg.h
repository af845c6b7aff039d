#pragma once

#include <QDialog>
#include <QTimer>

#include <chrono>
#include <memory>

namespace Ui
{
class CountdownDialog;
}

/// Counts down the pause before a calibration step; the user may start at once or cancel.
///
/// exec() returns 1 when the time is over or the user starts at once, 0 when the user cancels. With an
/// exec() under way the dialog may be destroyed together with its parent, so it belongs on the heap.
class CountdownDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CountdownDlg(QWidget *parent);
    ~CountdownDlg() override;

    /// How long a counted second lasts, 1000 ms at first; counts from the next setCountdown().
    void setTick(std::chrono::milliseconds tick) { m_timer.setInterval(tick); }
    /// Shows the text and the seconds and begins to count.
    void setCountdown(const QString &text, int seconds);

    void done(int result) override;

public slots:
    void updateCountdown();

protected:
    void changeEvent(QEvent *event) override;

private:
    void fitButtons();

    std::unique_ptr<Ui::CountdownDialog> m_ui;
    int m_secondsLeft = 0;
    QTimer m_timer{this};
};
