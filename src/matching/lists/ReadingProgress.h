#pragma once

#include <QProgressDialog>
#include <QTimer>

class PiecewiseReading;
class QProgressBar;

/// The window that stands in front of another while something is read that takes long. It reads on while it
/// is shown, and Cancel ends it.
class ReadingProgress : public QProgressDialog
{
    Q_OBJECT

public:
    /// Reads everything, and shows itself in front of `window` once that takes longer than 0.3 s. False when
    /// the user cancelled, and when `window` is gone.
    [[nodiscard]] static bool readAll(PiecewiseReading &reading, QWidget *window, const QString &text);

    /// The reading must outlive this.
    ReadingProgress(PiecewiseReading &reading, const QString &text, QWidget *window);

private:
    void readOn();

    PiecewiseReading &m_reading;
    QProgressBar *m_bar;
    QTimer m_timer;
};
