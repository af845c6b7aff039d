#include "bsDoubleWidget.h"

#include "NumberBox.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QSignalBlocker>

#include <qwt_wheel.h>

#include <array>
#include <cmath>

namespace
{

constexpr double wheelEnd = 360.0;
constexpr double wheelTotalAngle = 3600.0; // ten turns over the range
constexpr double halfWheel = 180.0;
constexpr double wheelPositions = 361.0;
constexpr double wrappingGap = 1.0;
constexpr double smallestChange = 1e-5;
constexpr int tickCount = 15;
constexpr int minimumPartWidth = 56;

/// Indexed by bsDoublePosition. The wheel is the second part of its layout, the label the first of its own;
/// beside the spin box the layout runs by the name of the side.
constexpr std::array<QBoxLayout::Direction, 4> labelDirections{
    QBoxLayout::TopToBottom, QBoxLayout::BottomToTop, QBoxLayout::LeftToRight, QBoxLayout::RightToLeft};
constexpr std::array<QBoxLayout::Direction, 4> wheelDirections{
    QBoxLayout::BottomToTop, QBoxLayout::TopToBottom, QBoxLayout::RightToLeft, QBoxLayout::LeftToRight};

} // namespace

bsDoubleWidget::bsDoubleWidget(QWidget *parent)
    : QWidget(parent)
    , m_outerLayout(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_label(new QLabel(this))
    , m_innerLayout(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_spinBox(new NumberBox(this))
    , m_wheel(new QwtWheel(this))
{
    buildSpinBox();
    buildWheel();
    m_outerLayout->setObjectName(QStringLiteral("outerLayout"));
    m_innerLayout->setObjectName(QStringLiteral("innerLayout"));
    m_label->setObjectName(QStringLiteral("label"));
    m_label->setBuddy(m_spinBox);
    m_innerLayout->addWidget(m_spinBox);
    m_innerLayout->addWidget(m_wheel);
    m_outerLayout->setContentsMargins(0, 0, 0, 0);
    m_outerLayout->addWidget(m_label);
    m_outerLayout->addLayout(m_innerLayout);
    setWheelOrientation(bsDoubleOrientation::Horizontal);
    languageChange();
    connectParts();
}

void bsDoubleWidget::buildSpinBox()
{
    m_spinBox->setObjectName(QStringLiteral("spinBox"));
    m_spinBox->setAlignment(Qt::AlignRight);
    m_spinBox->setMinimumWidth(minimumPartWidth);
}

void bsDoubleWidget::buildWheel()
{
    m_wheel->setObjectName(QStringLiteral("wheel"));
    m_wheel->setRange(0.0, wheelEnd);
    m_wheel->setSingleStep(1.0);
    m_wheel->setTotalAngle(wheelTotalAngle);
    m_wheel->setTickCount(tickCount);
    m_wheel->setWrapping(true); // otherwise it could not be turned below zero
}

void bsDoubleWidget::connectParts()
{
    connect(m_spinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &bsDoubleWidget::spinChanged);
    connect(m_spinBox, &QDoubleSpinBox::editingFinished, this, &bsDoubleWidget::setEditingFinished);
    connect(m_wheel, &QwtWheel::valueChanged, this, &bsDoubleWidget::wheelChanged);
    connect(m_wheel, &QwtWheel::wheelPressed, this, &bsDoubleWidget::setMouseEditingBegin);
    connect(m_wheel, &QwtWheel::wheelReleased, this, &bsDoubleWidget::setMouseEditingFinished);
}

double bsDoubleWidget::value() const
{
    return m_spinBox->value();
}

QString bsDoubleWidget::labelText() const
{
    return m_label->text();
}

QColor bsDoubleWidget::labelColor() const
{
    return m_label->palette().color(QPalette::WindowText);
}

void bsDoubleWidget::setLabelColor(const QColor &color)
{
    QPalette colors = m_label->palette();
    colors.setColor(QPalette::WindowText, color);
    m_label->setPalette(colors);
}

double bsDoubleWidget::singleStep() const
{
    return m_spinBox->singleStep();
}

void bsDoubleWidget::setSingleStep(double step)
{
    const QSignalBlocker silence(m_spinBox);
    if (wrapping())
        m_spinBox->setMaximum(m_spinBox->singleStep() + m_spinBox->maximum() - step);
    m_spinBox->setSingleStep(step);
}

bool bsDoubleWidget::wrapping() const
{
    return m_spinBox->wrapping();
}

void bsDoubleWidget::setWrapping(bool wrapping)
{
    if (wrapping == m_spinBox->wrapping())
        return;
    const QSignalBlocker silence(m_spinBox);
    m_spinBox->setMaximum(m_spinBox->maximum() + (wrapping ? -wrappingGap : wrappingGap));
    m_spinBox->setWrapping(wrapping);
}

void bsDoubleWidget::setRange(double minimum, double maximum)
{
    const QSignalBlocker silence(m_spinBox);
    m_spinBox->setMinimum(minimum);
    m_spinBox->setMaximum(wrapping() ? maximum - wrappingGap : maximum);
}

void bsDoubleWidget::showLabel(bool show)
{
    m_label->setVisible(show);
}

void bsDoubleWidget::setLabel(const QString &label)
{
    m_label->setText(label);
    languageChange();
}

void bsDoubleWidget::setLabelFont(const QFont &font)
{
    m_label->setFont(font);
}

void bsDoubleWidget::setSuffix(const QString &suffix)
{
    m_spinBox->setSuffix(suffix);
}

void bsDoubleWidget::setDecimals(int decimals)
{
    const QSignalBlocker silence(m_spinBox);
    m_spinBox->setDecimals(decimals);
}

void bsDoubleWidget::setValue(double value)
{
    if (!(std::fabs(value - m_spinBox->value()) > smallestChange))
        return;
    adjustValue(value);
    emit valueChanged(value);
}

void bsDoubleWidget::adjustValue(double value)
{
    const QSignalBlocker silence(m_spinBox);
    m_spinBox->setValue(value);
}

void bsDoubleWidget::setMode(bsDoubleMode mode)
{
    m_spinBox->setVisible(mode != bsDoubleMode::Wheel);
    m_wheel->setVisible(mode != bsDoubleMode::SpinBox);
}

void bsDoubleWidget::setLabelPosition(bsDoublePosition position)
{
    const bool isCentred = position == bsDoublePosition::Top || position == bsDoublePosition::Bottom;
    m_outerLayout->setDirection(labelDirections.at(static_cast<std::size_t>(position)));
    m_label->setAlignment(isCentred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void bsDoubleWidget::setWheelPosition(bsDoublePosition position)
{
    m_innerLayout->setDirection(wheelDirections.at(static_cast<std::size_t>(position)));
}

void bsDoubleWidget::setWheelOrientation(bsDoubleOrientation orientation)
{
    using Policy = QSizePolicy;
    const bool isVertical = orientation == bsDoubleOrientation::Vertical;
    m_wheel->setOrientation(isVertical ? Qt::Vertical : Qt::Horizontal);
    m_wheel->setMinimumWidth(isVertical ? 0 : minimumPartWidth);
    m_innerLayout->setAlignment(m_wheel, isVertical ? Qt::AlignHCenter : Qt::Alignment());
    m_wheel->setSizePolicy(isVertical ? Policy::Fixed : Policy::Preferred,
                           isVertical ? Policy::Expanding : Policy::Fixed);
    setSizePolicy(Policy::Preferred, isVertical ? Policy::Expanding : Policy::Fixed);
}

void bsDoubleWidget::reset()
{
    resetWheel();
    adjustValue(0.0);
}

void bsDoubleWidget::languageChange()
{
    m_spinBox->setAccessibleName(m_label->text());
    m_wheel->setAccessibleName(tr("Wheel for %1").arg(m_label->text()));
}

void bsDoubleWidget::resetWheel()
{
    if (m_wheelHeld) {
        m_lastWheel = m_wheel->value();
        return;
    }
    m_lastWheel = 0.0;
    const QSignalBlocker silence(m_wheel);
    m_wheel->setValue(0.0);
}

void bsDoubleWidget::spinChanged(double value)
{
    setEditingBegin();
    emit valueChanged(value);
}

void bsDoubleWidget::wheelChanged(double wheelValue)
{
    const double turned = wheelValue - m_lastWheel;
    if (turned > halfWheel)
        m_lastWheel += wheelPositions;
    else if (turned < -halfWheel)
        m_lastWheel -= wheelPositions;
    if (!m_mouseEditing)
        m_wheelTouched = true;
    const int steps = static_cast<int>(wheelValue - m_lastWheel);
    m_lastWheel = wheelValue; // before the step, whose receivers may reset the editor
    m_spinBox->stepBy(steps);
}

void bsDoubleWidget::setEditingBegin()
{
    if (m_editing)
        return;
    m_editing = true;
    m_spinBox->setFocus();
    emit editingBegin();
}

void bsDoubleWidget::setEditingFinished()
{
    if (!m_editing)
        return;
    {
        const QSignalBlocker silence(m_spinBox); // losing the focus would finish the edit a second time
        releaseFocus();
    }
    emit editingFinished();
    m_editing = false;
}

/// The wheel stands behind the spin box, so that the Tab key goes on where the edit ended.
void bsDoubleWidget::releaseFocus()
{
    if (m_spinBox->hasFocus() && m_wheel->isVisible())
        m_wheel->setFocus(Qt::OtherFocusReason);
    else
        m_spinBox->clearFocus();
}

void bsDoubleWidget::setMouseEditingBegin()
{
    m_mouseEditing = true;
    m_wheelHeld = true;
    setEditingBegin();
}

void bsDoubleWidget::setMouseEditingFinished()
{
    m_wheelHeld = false;
    setEditingFinished();
    m_mouseEditing = false;
}

void bsDoubleWidget::leaveEvent(QEvent *event)
{
    if (m_wheelTouched)
        setEditingFinished();
    m_wheelTouched = false;
    QWidget::leaveEvent(event);
}

void bsDoubleWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        languageChange();
    QWidget::changeEvent(event);
}
