#pragma once

#include "bsDoubleParts.h"

#include <QBoxLayout>

class QLabel;
class QwtWheel;

/// How the parts of an editor of one number lie: the spin box with the wheel at one of its sides, and the
/// label at one of the sides of both.
class EditorLayout
{
public:
    /// Lays the parts out in the editor, their parent: one beside the other, the wheel horizontal.
    EditorLayout(QWidget &editor, QLabel &label, QWidget &spinBox, QwtWheel &wheel);

    void setLabelPosition(bsDoublePosition position);
    void setWheelPosition(bsDoublePosition position);
    void setWheelOrientation(bsDoubleOrientation orientation);

    static constexpr int minimumPartWidth = 56;

private:
    QWidget &m_editor;
    QLabel &m_label;
    QwtWheel &m_wheel;
    QBoxLayout *m_outer; ///< the editor's
    QBoxLayout *m_inner; ///< part of the outer one
};
