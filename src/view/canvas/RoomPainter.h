#pragma once

class QColor;
class QGLWidget;
class QString;
class abcRoom;
class bsMatrix;
struct ViewProjection;
struct bsVector;

/// Draws a loaded room with OpenGL's fixed functions into the current context of a canvas.
///
/// The transformed room is marked "T", the untransformed one "O". Lengths in millimetres.
class RoomPainter
{
public:
    RoomPainter(QGLWidget &canvas, const abcRoom &room);

    /// Sets up a context that was just made.
    static void prepare();

    /// Fits the context to the projection.
    static void project(const ViewProjection &projection);

    /// Paints the whole picture; `cameraFromRoom` takes a point of the room into the camera's frame.
    void draw(const bsMatrix &cameraFromRoom);

private:
    struct Axes {
        double length;
        bool dashedLines;
        double dashedHalfLength;
        double intensity;
    };

    void drawRoom();
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
