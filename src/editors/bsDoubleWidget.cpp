#include "bsDoubleWidget.h"

#include "EditorLayout.h"
#include "NumberBox.h"

#include <QEvent>
#include <QLabel>
#include <QSignalBlocker>

#include <qwt_wheel.h>

#include <cmath>

namespace
{

constexpr double wheelEnd = 360.0;
constexpr double wheelTotalAngle = 3600.0; // ten turns over the range
constexpr double wrappingGap = 1.0;
constexpr double smallestChange = 1e-5;
constexpr int tickCount = 15;

} // namespace

bsDoubleWidget::bsDoubleWidget(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_spinBox(new NumberBox(this))
    , m_wheel(new QwtWheel(this))
{
    buildSpinBox();
    buildWheel();
    m_label->setObjectName(QStringLiteral("label"));
    m_label->setBuddy(m_spinBox);
    m_layout = std::make_unique<EditorLayout>(*this, *m_label, *m_spinBox, *m_wheel);
    languageChange();
    connectParts();
}

bsDoubleWidget::~bsDoubleWidget() = default;

void bsDoubleWidget::buildSpinBox()
{
    m_spinBox->setObjectName(QStringLiteral("spinBox"));
    m_spinBox->setAlignment(Qt::AlignRight);
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
    m_layout->setLabelPosition(position);
}

void bsDoubleWidget::setWheelPosition(bsDoublePosition position)
{
    m_layout->setWheelPosition(position);
}

void bsDoubleWidget::setWheelOrientation(bsDoubleOrientation orientation)
{
    m_layout->setWheelOrientation(orientation);
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
        m_wheelSteps.startFrom(m_wheel->value());
        return;
    }
    m_wheelSteps.startFrom(0.0);
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
    if (!m_mouseEditing)
        m_wheelTouched = true;
    m_spinBox->stepBy(m_wheelSteps.to(wheelValue)); // counted before: its receivers may reset the editor
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
