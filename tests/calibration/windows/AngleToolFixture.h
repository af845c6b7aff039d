#pragma once

#include "AdjustToToolDlg.h"
#include "CalibrationBench.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <functional>

/// The angle tool dialog with handles for a test. Its calibrations are polled every millisecond.
class AngleToolFixture : public AdjustToToolDlg
{
public:
    explicit AngleToolFixture(CalibrationBench *bench, QWidget *parent = nullptr);

    QDoubleSpinBox *spinBox(const char *name) const;
    QComboBox *models() const;
    QComboBox *types() const;
    QPushButton *button(const char *name) const;
    QString text(const char *label) const;
    /// A, B, C and the height in the fields.
    QList<double> values() const;

    /// Opens the dialog, does this inside and, unless the dialog closed by it, leaves it by its exit slot.
    int openAnd(const std::function<void()> &action);
    /// Opens the dialog, forgets the calls of that, and clicks on "&Calibrate" inside.
    int openAndCalibrate();
    bool wasOpenAfterwards() const { return m_wasOpenAfterwards; }

private:
    CalibrationBench *m_bench;
    QTimer m_hurry;
    QPointer<QWidget> m_hurried;
    bool m_wasOpenAfterwards = false;
};

/// Five coordinate types with "powerwall" chosen, and the angle tool of the model "Angle Frame A".
void setUpAngleTool(CalibrationBench *bench);
/// Lets a calibration that is started end at the second poll with this answer to "status active".
void endSecondPollWith(CalibrationBench *bench, const QByteArray &activity);

/// What is asked when the dialog opens after setUpAngleTool().
QStringList openingCalls();
/// What is written when a calibration is set up then.
QStringList setUpCalls();
/// What the progress dialog asks when the second poll finds the end.
QStringList progressCalls();
/// How tracking is started again.
QStringList restartCalls();
