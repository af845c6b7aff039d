#pragma once

class QColor;
class QGLWidget;
class QString;
class abcRoom;
struct bsVector;

/// Draws a loaded room with OpenGL's fixed functions into the current context of a canvas.
///
/// The transformed room is marked "T", the untransformed one "O". Lengths in millimetres.
class RoomPainter
{
public:
    RoomPainter(QGLWidget &canvas, const abcRoom &room);

    void draw();

private:
    struct Axes {
        double length;
        bool dashedLines;
        double dashedHalfLength;
        double intensity;
    };

    void drawTransformedFrame();
    void drawUntransformedFrame();
    void drawGrids();
    void drawAxes(const Axes &axes);
    void drawDashedAxes(double halfLength);
    void drawGrid(const QColor &color);
    void drawText(const QString &text, const bsVector &position);

    QGLWidget &m_canvas;
    const abcRoom &m_room;
};
