#pragma once

#include "RoomEdits.h"

#include <QCoreApplication>

#include <array>
#include <optional>

class QDoubleSpinBox;

namespace Ui
{
class CooTransClass;
}

/// The seven boxes of the fine panel: zero point offset in mm, room angles in degrees, scaling factor.
///
/// Setting a box is handled by the panel like a user's edit unless the panel looks away meanwhile.
class AdjustmentFields
{
    Q_DECLARE_TR_FUNCTIONS(CooTrans)

public:
    /// The form must outlive this.
    explicit AdjustmentFields(Ui::CooTransClass &ui);

    /// Once the form is set up: a mouse wheel changes none of the boxes unless it has the focus.
    void guardAgainstTheWheel();

    [[nodiscard]] AdjustmentBoxes values() const;
    void show(const AdjustmentBoxes &values);

    [[nodiscard]] RoomAngles angles() const;
    /// Sets rx, ry and rz in this order.
    void setAngles(const RoomAngles &angles);

    /// Of the three offset boxes, in mm.
    void setOffsetStep(double step);

    /// Lets the scaling box take every factor that a controller may hold, until showScaling().
    void widenScaling();

    /// Shows the controller's factor: within five percent of 1 the box stays there, otherwise it is widened,
    /// and the caption says which. What is no finite number is shown as 1.
    void showScaling(double scaling);

    /// Tells the caption in the present language.
    void showScalingCaption();

private:
    [[nodiscard]] std::array<QDoubleSpinBox *, 3> offsetBoxes() const;

    Ui::CooTransClass &m_ui;
    std::optional<bool> m_wideScaling; ///< none before the first showScaling()
};
