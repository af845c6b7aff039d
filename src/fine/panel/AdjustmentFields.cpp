#include "AdjustmentFields.h"

#include "WheelGuard.h"
#include "ui_CooTrans.h"

#include <cmath>

namespace
{

constexpr double narrowScalingMinimum = 0.95;
constexpr double narrowScalingMaximum = 1.05;
constexpr double wideScalingMinimum = 0.1;
constexpr double wideScalingMaximum = 2.0;

bool isNarrowScaling(double scaling)
{
    return scaling >= narrowScalingMinimum && scaling <= narrowScalingMaximum;
}

} // namespace

AdjustmentFields::AdjustmentFields(Ui::CooTransClass &ui)
    : m_ui(ui)
{
}

void AdjustmentFields::guardAgainstTheWheel()
{
    for (QDoubleSpinBox *box : offsetBoxes())
        WheelGuard::protect(box);
    for (QDoubleSpinBox *box :
         std::initializer_list<QDoubleSpinBox *>{m_ui.doubleSpinBox_rx, m_ui.doubleSpinBox_ry,
                                                 m_ui.doubleSpinBox_rz, m_ui.doubleSpinBox_scalingFactor})
        WheelGuard::protect(box);
}

std::array<QDoubleSpinBox *, 3> AdjustmentFields::offsetBoxes() const
{
    return {m_ui.doubleSpinBox_x, m_ui.doubleSpinBox_y, m_ui.doubleSpinBox_z};
}

AdjustmentBoxes AdjustmentFields::values() const
{
    AdjustmentBoxes values;
    for (std::size_t i = 0; i < 3; ++i)
        values.offset[i] = offsetBoxes()[i]->value();
    values.angles = angles();
    values.scaling = m_ui.doubleSpinBox_scalingFactor->value();
    return values;
}

void AdjustmentFields::show(const AdjustmentBoxes &values)
{
    for (std::size_t i = 0; i < 3; ++i)
        offsetBoxes()[i]->setValue(values.offset[i]);
    setAngles(values.angles);
    m_ui.doubleSpinBox_scalingFactor->setValue(values.scaling);
}

RoomAngles AdjustmentFields::angles() const
{
    RoomAngles angles;
    angles.eta = m_ui.doubleSpinBox_rx->value();
    angles.theta = m_ui.doubleSpinBox_ry->value();
    angles.phi = m_ui.doubleSpinBox_rz->value();
    return angles;
}

void AdjustmentFields::setAngles(const RoomAngles &angles)
{
    m_ui.doubleSpinBox_rx->setValue(angles.eta);
    m_ui.doubleSpinBox_ry->setValue(angles.theta);
    m_ui.doubleSpinBox_rz->setValue(angles.phi);
}

void AdjustmentFields::setOffsetStep(double step)
{
    for (QDoubleSpinBox *box : offsetBoxes())
        box->setSingleStep(step);
}

void AdjustmentFields::widenScaling()
{
    m_ui.doubleSpinBox_scalingFactor->setRange(wideScalingMinimum, wideScalingMaximum);
}

void AdjustmentFields::showScaling(double scaling)
{
    const double shown = std::isfinite(scaling) ? scaling : 1.0;
    widenScaling();
    m_ui.doubleSpinBox_scalingFactor->setValue(shown);
    m_wideScaling = !isNarrowScaling(shown);
    if (!*m_wideScaling)
        m_ui.doubleSpinBox_scalingFactor->setRange(narrowScalingMinimum, narrowScalingMaximum);
    showScalingCaption();
}

void AdjustmentFields::showScalingCaption()
{
    if (!m_wideScaling)
        return;
    const QString caption = *m_wideScaling ? tr("Scaling") : tr("Scaling (+/- 5%)");
    m_ui.groupBox_scaling->setTitle(caption);
    m_ui.doubleSpinBox_scalingFactor->setToolTip(caption);
}
