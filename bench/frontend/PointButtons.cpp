#include "PointButtons.h"

#include "MillimetreText.h"
#include "RoomControls.h"

#include <QGridLayout>
#include <QPushButton>

namespace
{

constexpr int columns = 3;
constexpr int lastMnemonic = 9;

} // namespace

PointButtons::PointButtons(RoomControls &controls, QGridLayout *layout, QWidget *before, QWidget *behind)
    : m_controls(controls)
    , m_layout(layout)
    , m_before(before)
    , m_behind(behind)
{
}

void PointButtons::showState()
{
    const int count = m_controls.pointCount();
    if (count == m_buttons.size())
        return;
    qDeleteAll(m_buttons);
    m_buttons.clear();
    for (int point = 1; point <= count; ++point)
        add(point);
    QWidget::setTabOrder(m_buttons.isEmpty() ? m_before : m_buttons.last(), m_behind);
    showTexts();
}

void PointButtons::add(int point)
{
    auto *button = new QPushButton(m_layout->parentWidget());
    button->setObjectName(QStringLiteral("pointButton%1").arg(point));
    connect(button, &QPushButton::clicked, this, [this, point] { emit clicked(point); });
    m_layout->addWidget(button, (point - 1) / columns, (point - 1) % columns);
    QWidget::setTabOrder(m_buttons.isEmpty() ? m_before : m_buttons.last(), button);
    m_buttons << button;
}

void PointButtons::showTexts()
{
    for (int number = 1; number <= m_buttons.size(); ++number) {
        QPushButton *button = m_buttons.at(number - 1);
        button->setText((number <= lastMnemonic ? tr("Point &%1") : tr("Point %1")).arg(number));
        if (const auto point = m_controls.point(number))
            button->setToolTip(tr("%1, nominally at %2, %3, %4")
                                   .arg(point->name, millimetreText(point->nominalMm[0]),
                                        millimetreText(point->nominalMm[1]),
                                        millimetreText(point->nominalMm[2])));
    }
}
