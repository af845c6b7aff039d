#pragma once

#include "MeasuringSounds.h"

#include <QObject>

class LargeDisplay;
class QCheckBox;

/// What a person who stands at the object hears and sees of the measurement: sounds and the large display,
/// each with its check box. Points count from 1, lengths are millimetres.
class MeasuringSigns : public QObject
{
    Q_OBJECT

public:
    /// The widgets must outlive this, and so must the parent.
    MeasuringSigns(QCheckBox *sounds, QCheckBox *larger, LargeDisplay *display, QObject *parent);

    /// Looks whether the sounds were turned off elsewhere meanwhile.
    void refresh();

    void showCount(int measured, int references);
    /// `percent` of the duration is over.
    void showMeasuring(int point, int references, int percent);
    /// `deviationMm` is how far the tip was off its mean, as a standard deviation.
    void pointTaken(int point, int references, double deviationMm);
    void measurementFailed(int point, int references);

private:
    QCheckBox *m_switch;
    LargeDisplay *m_display;
    MeasuringSounds m_sounds;
};
