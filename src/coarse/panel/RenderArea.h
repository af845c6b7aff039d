#pragma once

#include "AxisAssigner.h"

#include <QLabel>
#include <QLine>
#include <QPixmap>

#include <array>

struct BackendVersions;

/// A picture of a room calibration's coordinate type, with an arrow for the axis in each of six directions.
///
/// Its size is fixed to that of the pictures, which are square and of one size.
class RenderArea : public QLabel
{
    Q_OBJECT

public:
    /// `size` is the side in pixels of the square that the picture fills. The versions are not owned and may
    /// be null; their backend name chooses between the pictures of the middle camera.
    RenderArea(int size, QWidget *parent, const BackendVersions *versions);

    /// No type and an unknown one are shown without arrows.
    void setCoordinateType(CoordinateType type);
    CoordinateType coordinateType() const { return m_type; }

    void setAxes(const DirectionAxes &axes);
    const DirectionAxes &axes() const { return m_axes; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void computeLines(int width);
    QString picturePath() const;
    void drawArrows(QPainter *painter) const;

    CoordinateType m_type = CoordinateType::Unknown;
    DirectionAxes m_axes{};
    QPixmap m_picture;
    int m_size;
    std::array<QLine, 6> m_lines;
    std::array<QLine, 12> m_heads; ///< two for each line
    const BackendVersions *m_versions;
};
