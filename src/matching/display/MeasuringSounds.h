#pragma once

#include <QObject>
#include <QTimer>

/// Tells with signals that can be told apart by ear what became of a measurement: one for a point that was
/// taken, two in a row for one that failed. Makes none itself.
class MeasuringSounds : public QObject
{
    Q_OBJECT

public:
    explicit MeasuringSounds(QObject *parent = nullptr);

    /// On at first; kept as long as the host runs.
    [[nodiscard]] static bool areOn();
    static void turnOn(bool on);

    void pointTaken();
    void measurementFailed();

signals:
    /// One short signal is due.
    void beep();

private:
    void beepUnlessOff();

    QTimer m_second;
};
