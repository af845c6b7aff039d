#include "MeasuringSigns.h"

#include "LargeDisplay.h"
#include "MatchingReport.h"

#include <QApplication>
#include <QCheckBox>

MeasuringSigns::MeasuringSigns(QCheckBox *sounds, QCheckBox *larger, LargeDisplay *display, QObject *parent)
    : QObject(parent)
    , m_switch(sounds)
    , m_display(display)
    , m_sounds(this)
{
    refresh();
    m_display->setVisible(larger->isChecked());
    connect(m_switch, &QCheckBox::toggled, this, &MeasuringSounds::turnOn);
    connect(larger, &QCheckBox::toggled, m_display, &QWidget::setVisible);
    connect(&m_sounds, &MeasuringSounds::beep, this, &QApplication::beep);
}

void MeasuringSigns::refresh()
{
    m_switch->setChecked(MeasuringSounds::areOn());
}

void MeasuringSigns::showCount(int measured, int references)
{
    m_display->say([measured, references] { return MatchingReport::measuredOf(measured, references); });
}

void MeasuringSigns::showMeasuring(int point, int references, int percent)
{
    m_display->say([point, references, percent] {
        return tr("Point %1 of %2: %3 %").arg(point).arg(references).arg(percent);
    });
}

void MeasuringSigns::pointTaken(int point, int references, double deviationMm)
{
    m_display->say([point, references, deviationMm] {
        return tr("Point %1 of %2: %3 mm")
            .arg(point)
            .arg(references)
            .arg(QString::number(deviationMm, 'f', 2));
    });
    m_sounds.pointTaken();
}

void MeasuringSigns::measurementFailed(int point, int references)
{
    m_display->say([point, references] { return tr("Point %1 of %2: failed").arg(point).arg(references); });
    m_sounds.measurementFailed();
}
