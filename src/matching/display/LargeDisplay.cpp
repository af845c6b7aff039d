#include "LargeDisplay.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace
{

constexpr int usualHeight = 110;
/// Capitals of about 9 mm on a screen with 96 pixels to the inch, 10 minutes of arc at 3 m: twice what a good
/// eye needs. Higher, and the window would not fit on 960 x 540, a screen of 1920 x 1080 at scale 2.
constexpr int smallestHeight = 60;
constexpr int smallestWidth = 300;
constexpr int margin = 2;

} // namespace

LargeDisplay::LargeDisplay(QWidget *parent)
    : QWidget(parent)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void LargeDisplay::say(Text text)
{
    m_text = std::move(text);
    tell();
}

QString LargeDisplay::text() const
{
    return m_text ? m_text() : QString();
}

QSize LargeDisplay::sizeHint() const
{
    return {smallestWidth, usualHeight};
}

QSize LargeDisplay::minimumSizeHint() const
{
    return {smallestWidth, smallestHeight};
}

QFont LargeDisplay::largestFont() const
{
    constexpr int probe = 100;
    QFont font = this->font();
    font.setPixelSize(probe);
    const QFontMetricsF metrics(font);
    const double wide = (width() - 2 * margin) / std::max(1.0, metrics.horizontalAdvance(text()));
    const double high = (height() - 2 * margin) / metrics.height();
    font.setPixelSize(std::max(1, static_cast<int>(probe * std::min(wide, high))));
    return font;
}

void LargeDisplay::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        tell();
}

void LargeDisplay::tell()
{
    setAccessibleDescription(text());
    update();
}

void LargeDisplay::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setFont(largestFont());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, text());
}
