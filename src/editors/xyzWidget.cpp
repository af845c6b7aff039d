#include "xyzWidget.h"

#include "bsDoubleWidget.h"

#include <QBoxLayout>
#include <QEvent>

xyzWidget::xyzWidget(QWidget *parent)
    : QGroupBox(parent)
    , m_layout(new QBoxLayout(QBoxLayout::TopToBottom, this))
    , m_x(new bsDoubleWidget(this))
    , m_y(new bsDoubleWidget(this))
    , m_z(new bsDoubleWidget(this))
    , m_editors{m_x, m_y, m_z}
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_x->setObjectName(QStringLiteral("x"));
    m_y->setObjectName(QStringLiteral("y"));
    m_z->setObjectName(QStringLiteral("z"));
    showStandardLabels();
    for (bsDoubleWidget *editor : m_editors)
        addEditor(editor);
}

/// Labels that were given from outside are not in the hands of this widget.
void xyzWidget::showStandardLabels()
{
    const std::array<QString, 3> labels{tr("X :"), tr("Y :"), tr("Z :")};
    for (std::size_t i = 0; i < m_editors.size(); ++i) {
        if (m_editors[i]->labelText() == m_standardLabels[i])
            m_editors[i]->setLabel(labels[i]);
    }
    m_standardLabels = labels;
}

void xyzWidget::addEditor(bsDoubleWidget *editor)
{
    m_layout->addWidget(editor);
    connect(editor, &bsDoubleWidget::valueChanged, this, &xyzWidget::xyzChanged);
    connect(editor, &bsDoubleWidget::editingBegin, this, &xyzWidget::xyzEditingBegin);
    connect(editor, &bsDoubleWidget::editingFinished, this, &xyzWidget::xyzEditingFinished);
}

double xyzWidget::xValue() const
{
    return m_x->value();
}

double xyzWidget::yValue() const
{
    return m_y->value();
}

double xyzWidget::zValue() const
{
    return m_z->value();
}

QString xyzWidget::groupTitle() const
{
    return title();
}

void xyzWidget::setGroupTitle(const QString &title)
{
    setTitle(title);
}

void xyzWidget::setSingleStep(double step)
{
    for (bsDoubleWidget *editor : m_editors)
        editor->setSingleStep(step);
}

void xyzWidget::setDecimals(int decimals)
{
    for (bsDoubleWidget *editor : m_editors)
        editor->setDecimals(decimals);
}

void xyzWidget::setSuffix(const QString &suffix)
{
    for (bsDoubleWidget *editor : m_editors)
        editor->setSuffix(suffix);
}

double xyzWidget::singleStep() const
{
    return m_x->singleStep();
}

bsDoubleWidget *xyzWidget::xEditor() const
{
    return m_x;
}

bsDoubleWidget *xyzWidget::yEditor() const
{
    return m_y;
}

bsDoubleWidget *xyzWidget::zEditor() const
{
    return m_z;
}

void xyzWidget::setValues(double x, double y, double z)
{
    m_x->setValue(x);
    m_y->setValue(y);
    m_z->setValue(z);
}

void xyzWidget::adjustValues(double x, double y, double z)
{
    m_x->adjustValue(x);
    m_y->adjustValue(y);
    m_z->adjustValue(z);
}

void xyzWidget::setXValue(double value)
{
    m_x->setValue(value);
}

void xyzWidget::setYValue(double value)
{
    m_y->setValue(value);
}

void xyzWidget::setZValue(double value)
{
    m_z->setValue(value);
}

void xyzWidget::setLabels(const QString &xLabel, const QString &yLabel, const QString &zLabel)
{
    setXLabel(xLabel);
    setYLabel(yLabel);
    setZLabel(zLabel);
}

void xyzWidget::setXLabel(const QString &label)
{
    m_x->setLabel(label);
}

void xyzWidget::setYLabel(const QString &label)
{
    m_y->setLabel(label);
}

void xyzWidget::setZLabel(const QString &label)
{
    m_z->setLabel(label);
}

void xyzWidget::reset()
{
    for (bsDoubleWidget *editor : m_editors)
        editor->reset();
}

void xyzWidget::setLayoutHorizontal(bool horizontal)
{
    m_layout->setDirection(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void xyzWidget::setXRange(double minimum, double maximum)
{
    m_x->setRange(minimum, maximum);
}

void xyzWidget::setYRange(double minimum, double maximum)
{
    m_y->setRange(minimum, maximum);
}

void xyzWidget::setZRange(double minimum, double maximum)
{
    m_z->setRange(minimum, maximum);
}

void xyzWidget::setXWrapping(bool wrapping)
{
    m_x->setWrapping(wrapping);
}

void xyzWidget::setYWrapping(bool wrapping)
{
    m_y->setWrapping(wrapping);
}

void xyzWidget::setZWrapping(bool wrapping)
{
    m_z->setWrapping(wrapping);
}

void xyzWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showStandardLabels();
    QGroupBox::changeEvent(event);
}

void xyzWidget::xyzChanged(double)
{
    emit valueChanged(m_x->value(), m_y->value(), m_z->value());
}
