#include "RenderArea.h"

#include "BackendName.h"
#include "Resources.h"

#include <QPaintEvent>
#include <QPainter>

namespace
{

QPen penOf(int axis)
{
    static constexpr std::array<Qt::GlobalColor, 3> colors{Qt::red, Qt::green, Qt::blue};
    const bool isNegative = axis % 2 != 0;
    return {QBrush(colors.at(static_cast<std::size_t>(axis / 2))), isNegative ? 3.0 : 1.0, Qt::SolidLine,
            Qt::SquareCap, Qt::BevelJoin};
}

int logicalWidth(const QPixmap &picture)
{
    return qRound(picture.width() / picture.devicePixelRatio());
}

} // namespace

RenderArea::RenderArea(int size, QWidget *parent, const BackendVersions *versions)
    : QLabel(parent)
    , m_size(size)
    , m_versions(versions)
{
    loadResources();
    m_picture = QPixmap(QStringLiteral(":/background.png"));
    const int width = logicalWidth(m_picture);
    setFixedSize(width, width);
    computeLines(width);
}

void RenderArea::computeLines(int width)
{
    const int c = width / 2;
    const int far = width - 10;
    const int farHead = width - 15;
    const int low = width - 30;
    const int lowHead = width - 37;
    m_lines = {QLine(c, c, 10, c),  QLine(c, c, far, c),  QLine(c, c, c, 10),
               QLine(c, c, c, far), QLine(c, c, 30, low), QLine(c, c, low, 30)};
    m_heads = {QLine(10, c, 15, c - 5),       QLine(10, c, 15, c + 5),       QLine(far, c, farHead, c - 5),
               QLine(far, c, farHead, c + 5), QLine(c, 10, c - 5, 15),       QLine(c, 10, c + 5, 15),
               QLine(c, far, c - 5, farHead), QLine(c, far, c + 5, farHead), QLine(30, low, 30, lowHead),
               QLine(30, low, 37, low),       QLine(low, 30, lowHead, 30),   QLine(low, 30, low, 37)};
}

void RenderArea::setCoordinateType(CoordinateType type)
{
    m_type = type;
    m_picture = QPixmap(picturePath());
    update();
}

void RenderArea::setAxes(const DirectionAxes &axes)
{
    m_axes = axes;
    update();
}

QString RenderArea::picturePath() const
{
    switch (m_type) {
    case CoordinateType::Normal:
    case CoordinateType::Powerwall:
        return QStringLiteral(":/normal.png");
    case CoordinateType::PowerwallStanding:
        return QStringLiteral(":/powerwall_standing.png");
    case CoordinateType::MidCamera:
        if (isBackendNamed(m_versions, QLatin1String("OKTAVO3")))
            return QStringLiteral(":/mid_camera_okt3.png");
        return QStringLiteral(":/mid_camera.png");
    case CoordinateType::None:
    case CoordinateType::Unknown:
        break;
    }
    return QStringLiteral(":/background.png");
}

void RenderArea::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), Qt::white);
    const QRectF area(0, 0, m_size, m_size);
    const qreal density = m_picture.devicePixelRatio(); // the source is counted in the picture's own pixels
    painter.drawPixmap(area, m_picture, QRectF(area.topLeft(), area.size() * density));
    if (m_type != CoordinateType::Unknown && m_type != CoordinateType::None)
        drawArrows(&painter);
}

void RenderArea::drawArrows(QPainter *painter) const
{
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        painter->setPen(penOf(m_axes[i]));
        painter->drawLine(m_lines[i]);
        if (m_axes[i] % 2 != 0)
            continue;
        painter->drawLine(m_heads[2 * i]);
        painter->drawLine(m_heads[2 * i + 1]);
    }
}
