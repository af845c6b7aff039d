#include "EditorLayout.h"

#include <QLabel>

#include <qwt_wheel.h>

#include <array>

namespace
{

/// Indexed by bsDoublePosition. The wheel is the second part of its layout, the label the first of its own;
/// beside the spin box the layout runs by the name of the side.
constexpr std::array<QBoxLayout::Direction, 4> labelDirections{
    QBoxLayout::TopToBottom, QBoxLayout::BottomToTop, QBoxLayout::LeftToRight, QBoxLayout::RightToLeft};
constexpr std::array<QBoxLayout::Direction, 4> wheelDirections{
    QBoxLayout::BottomToTop, QBoxLayout::TopToBottom, QBoxLayout::RightToLeft, QBoxLayout::LeftToRight};

} // namespace

EditorLayout::EditorLayout(QWidget &editor, QLabel &label, QWidget &spinBox, QwtWheel &wheel)
    : m_editor(editor)
    , m_label(label)
    , m_wheel(wheel)
    , m_outer(new QBoxLayout(QBoxLayout::LeftToRight, &editor))
    , m_inner(new QBoxLayout(QBoxLayout::LeftToRight))
{
    m_outer->setObjectName(QStringLiteral("outerLayout"));
    m_inner->setObjectName(QStringLiteral("innerLayout"));
    m_inner->addWidget(&spinBox);
    m_inner->addWidget(&wheel);
    m_outer->setContentsMargins(0, 0, 0, 0);
    m_outer->addWidget(&label);
    m_outer->addLayout(m_inner);
    spinBox.setMinimumWidth(minimumPartWidth);
    setWheelOrientation(bsDoubleOrientation::Horizontal);
}

void EditorLayout::setLabelPosition(bsDoublePosition position)
{
    const bool isCentred = position == bsDoublePosition::Top || position == bsDoublePosition::Bottom;
    m_outer->setDirection(labelDirections.at(static_cast<std::size_t>(position)));
    m_label.setAlignment(isCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void EditorLayout::setWheelPosition(bsDoublePosition position)
{
    m_inner->setDirection(wheelDirections.at(static_cast<std::size_t>(position)));
}

void EditorLayout::setWheelOrientation(bsDoubleOrientation orientation)
{
    using Policy = QSizePolicy;
    const bool isVertical = orientation == bsDoubleOrientation::Vertical;
    m_wheel.setOrientation(isVertical ? Qt::Vertical : Qt::Horizontal);
    m_wheel.setMinimumWidth(isVertical ? 0 : minimumPartWidth);
    m_inner->setAlignment(&m_wheel, isVertical ? Qt::AlignHCenter : Qt::Alignment());
    m_wheel.setSizePolicy(isVertical ? Policy::Fixed : Policy::Preferred,
                          isVertical ? Policy::Expanding : Policy::Fixed);
    m_editor.setSizePolicy(Policy::Preferred, isVertical ? Policy::Expanding : Policy::Fixed);
}
