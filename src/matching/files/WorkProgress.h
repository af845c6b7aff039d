#pragma once

#include <QProgressDialog>
#include <QTimer>

class PiecewiseWork;
class QProgressBar;

/// The window that stands in front of another while something is done that takes long. It goes on while it
/// is shown, and Cancel ends it.
class WorkProgress : public QProgressDialog
{
    Q_OBJECT

public:
    /// Does everything, and shows itself in front of `window` once that takes longer than 0.3 s. False when
    /// the user cancelled, and when `window` is gone.
    [[nodiscard]] static bool doAll(PiecewiseWork &work, QWidget *window, const QString &text);

    /// The work must outlive this.
    WorkProgress(PiecewiseWork &work, const QString &text, QWidget *window);

private:
    void goOn();

    PiecewiseWork &m_work;
    QProgressBar *m_bar;
    QTimer m_timer;
};
