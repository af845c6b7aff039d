#include "FitPicture.h"

#include <QFontMetrics>
#include <QPainter>

namespace
{

constexpr double crossArm = 6.0;
constexpr double discRadius = 4.0;
constexpr double ringRadius = 13.0;
constexpr double numberOffset = 10.0; ///< outside the ring
constexpr double linePen = 2.0;
constexpr int border = 8;

QPointF pointOf(const FitSketch::Place &place)
{
    return {place.x, place.y};
}

} // namespace

FitPicture::FitPicture(QWidget *parent)
    : QWidget(parent)
{
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

QSize FitPicture::sizeHint() const
{
    return {520, 400};
}

QSize FitPicture::minimumSizeHint() const
{
    return {240, 180};
}

void FitPicture::show(const MatchingPoints &references, const MatchingEvaluation &evaluation, int worstPair)
{
    m_references = references;
    m_evaluation = evaluation;
    m_worstPair = worstPair;
    m_along = FitSketch::widestView(references);
    update();
}

void FitPicture::setView(FitSketch::Along along)
{
    m_along = along;
    update();
}

void FitPicture::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const FitSketch sketch =
        FitSketch::of(m_references, m_evaluation.mapped, m_along, double(width()), double(height()));
    for (std::size_t i = 0; i < sketch.pairs.size(); ++i)
        paintPair(painter, sketch.pairs[i], i);
    if (m_worstPair >= 0)
        paintWorst(painter, sketch.pairs[static_cast<std::size_t>(m_worstPair)]);
    paintLegend(painter, sketch.enlargement);
    paintAxes(painter);
}

/// A result that another order fits as well is drawn in broken lines.
void FitPicture::paintPair(QPainter &painter, const FitSketch::Pair &pair, std::size_t index) const
{
    const QPointF reference = pointOf(pair.reference);
    const Qt::PenStyle style = m_evaluation.otherOrderFits ? Qt::DashLine : Qt::SolidLine;
    painter.setPen(QPen(palette().color(QPalette::Highlight), linePen, style));
    painter.drawLine(reference, pointOf(pair.mapped));
    painter.setBrush(m_evaluation.otherOrderFits ? QBrush() : palette().brush(QPalette::Highlight));
    painter.drawEllipse(pointOf(pair.mapped), discRadius, discRadius);
    painter.setPen(QPen(palette().color(QPalette::Text), linePen));
    painter.drawLine(reference - QPointF(crossArm, 0), reference + QPointF(crossArm, 0));
    painter.drawLine(reference - QPointF(0, crossArm), reference + QPointF(0, crossArm));
    painter.drawText(reference + QPointF(numberOffset, -numberOffset), QString::number(index + 1));
}

void FitPicture::paintWorst(QPainter &painter, const FitSketch::Pair &pair) const
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Text), linePen));
    painter.drawEllipse(pointOf(pair.reference), ringRadius, ringRadius);
    const double distanceMm = m_evaluation.distancesMm[static_cast<std::size_t>(m_worstPair)];
    const QString text = tr("%1 mm").arg(QString::number(distanceMm, 'f', 2));
    const int textWidth = fontMetrics().horizontalAdvance(text);
    const double left = qBound(0.0, pair.reference.x - 0.5 * textWidth, double(width() - textWidth));
    painter.drawText(QPointF(left, pair.reference.y + ringRadius + fontMetrics().height()), text);
}

void FitPicture::paintLegend(QPainter &painter, double enlargement) const
{
    painter.setPen(palette().color(QPalette::Text));
    QString text = tr("Errors are drawn %1 times as large.").arg(QString::number(enlargement, 'f', 0));
    if (m_evaluation.otherOrderFits)
        text += QLatin1Char('\n') + tr("Broken lines: another order of the points fits as well.");
    painter.drawText(rect().adjusted(border, border, -border, -border), Qt::AlignLeft | Qt::AlignTop, text);
}

void FitPicture::paintAxes(QPainter &painter) const
{
    const QChar right = m_along == FitSketch::Along::X ? QLatin1Char('y') : QLatin1Char('x');
    const QChar up = m_along == FitSketch::Along::Z ? QLatin1Char('y') : QLatin1Char('z');
    const QString text = QString(right) + QChar(0x2192) + QLatin1Char(' ') + QString(up) + QChar(0x2191);
    painter.drawText(rect().adjusted(border, border, -border, -border), Qt::AlignLeft | Qt::AlignBottom,
                     text);
}
