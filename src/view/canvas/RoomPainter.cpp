#include "RoomPainter.h"

#include "GridLines.h"
#include "ViewDistance.h"
#include "abcRoom.h"

#include <GL/glu.h>
#include <QFont>
#include <QGLWidget>
#include <QtMath>

#include <array>

namespace
{

constexpr double transformedAxisLength = 30.0;
constexpr double untransformedAxisLength = 25.0;
constexpr float untransformedGrey = 0.4F;
constexpr int slices = 16;
constexpr int stacks = 1;

bsMatrix openGLMatrix(GLenum name)
{
    std::array<GLdouble, 16> values{};
    glGetDoublev(name, values.data());
    bsMatrix result;
    for (int i = 0; i < 16; ++i)
        result.at(i % 4, i / 4) = values[static_cast<std::size_t>(i)];
    return result;
}

bsMatrix clipFromModel()
{
    return bsMatrix::product(openGLMatrix(GL_PROJECTION_MATRIX), openGLMatrix(GL_MODELVIEW_MATRIX));
}

bool isInFrontOfTheEye(const bsMatrix &clip, const bsVector &p)
{
    return clip.at(3, 0) * p.x + clip.at(3, 1) * p.y + clip.at(3, 2) * p.z + clip.at(3, 3) > 0.0;
}

void drawArrow(GLUquadric *quadric, double length)
{
    const double headRadius = length / 10.0;
    const double shaftRadius = headRadius * 0.125;
    gluCylinder(quadric, shaftRadius, shaftRadius, length, slices, stacks);
    glTranslated(0.0, 0.0, length);
    gluCylinder(quadric, headRadius, 0.0, length / 5.0, slices, stacks);
}

} // namespace

RoomPainter::RoomPainter(QGLWidget &canvas, const abcRoom &room)
    : m_canvas(canvas)
    , m_room(room)
{
}

void RoomPainter::prepare()
{
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glClearDepth(1.0);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHTING);
}

void RoomPainter::project(const ViewProjection &projection)
{
    glViewport(0, 0, projection.width, projection.height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(projection.fieldOfViewDegrees, static_cast<double>(projection.width) / projection.height,
                   projection.nearPlane, projection.farPlane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void RoomPainter::draw(const bsMatrix &cameraFromRoom)
{
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glPushMatrix();
    glMultMatrixd(cameraFromRoom.data());
    drawRoom();
    glPopMatrix();
    glFlush();
}

void RoomPainter::drawRoom()
{
    if (!m_room.isLoaded())
        return;
    glPushMatrix();
    glMultMatrixd(m_room.pendingMatrix().data());
    drawTransformedFrame();
    bsMatrix roomFromUntransformed = m_room.transformation();
    roomFromUntransformed.invertRigid();
    if (roomFromUntransformed.isFinite()) {
        glMultMatrixd(roomFromUntransformed.data());
        drawUntransformedFrame();
    }
    glPopMatrix();
}

void RoomPainter::drawTransformedFrame()
{
    const RoomDisplay &display = m_room.display();
    const double scale = display.unitSize;
    const double length = transformedAxisLength * scale;
    drawAxes({length, display.longAxes, length * scale * display.longAxesFactor, 1.0});
    glDisable(GL_LIGHTING);
    glColor3d(1.0, 1.0, 1.0);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0F, 1.0F);
    drawText(QStringLiteral("T"), {-5.0 * scale, scale, 0.0});
    glDisable(GL_POLYGON_OFFSET_FILL);
    drawGrids();
}

void RoomPainter::drawUntransformedFrame()
{
    const double scale = m_room.unitSize();
    drawAxes({untransformedAxisLength * scale, false, 0.0, static_cast<double>(untransformedGrey)});
    glDisable(GL_LIGHTING);
    glColor3f(untransformedGrey, untransformedGrey, untransformedGrey);
    drawText(QStringLiteral("O"), {-5.0 * scale, -5.0 * scale, 0.0});
}

void RoomPainter::drawGrids()
{
    const RoomDisplay &display = m_room.display();
    if (display.showXY)
        drawGrid(display.xyColor);
    if (display.showYZ) {
        glPushMatrix();
        glRotated(90.0, 0.0, 1.0, 0.0);
        drawGrid(display.yzColor);
        glPopMatrix();
    }
    if (display.showXZ) {
        glPushMatrix();
        glRotated(90.0, 1.0, 0.0, 0.0);
        drawGrid(display.xzColor);
        glPopMatrix();
    }
}

void RoomPainter::drawAxes(const Axes &axes)
{
    GLUquadric *quadric = gluNewQuadric();
    gluQuadricDrawStyle(quadric, GLU_FILL);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_LIGHTING);
    const double c = axes.intensity;
    glColor3d(c, 0.0, 0.0);
    glPushMatrix();
    glRotated(90.0, 0.0, 1.0, 0.0);
    drawArrow(quadric, axes.length);
    glPopMatrix();
    glColor3d(0.0, c, 0.0);
    glPushMatrix();
    glRotated(-90.0, 1.0, 0.0, 0.0);
    drawArrow(quadric, axes.length);
    glPopMatrix();
    glColor3d(0.0, 0.0, c);
    glPushMatrix();
    drawArrow(quadric, axes.length);
    glPopMatrix();
    if (axes.dashedLines)
        drawDashedAxes(axes.dashedHalfLength);
    gluDeleteQuadric(quadric);
}

void RoomPainter::drawDashedAxes(double halfLength)
{
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, 0xF0F0);
    glDisable(GL_LIGHTING);
    glLineWidth(1.0F);
    glBegin(GL_LINES);
    glColor3d(1.0, 0.0, 0.0);
    glVertex3d(-halfLength, 0.0, 0.0);
    glVertex3d(halfLength, 0.0, 0.0);
    glColor3d(0.0, 1.0, 0.0);
    glVertex3d(0.0, -halfLength, 0.0);
    glVertex3d(0.0, halfLength, 0.0);
    glColor3d(0.0, 0.0, 1.0);
    glVertex3d(0.0, 0.0, -halfLength);
    glVertex3d(0.0, 0.0, halfLength);
    glEnd();
    glDisable(GL_LINE_STIPPLE);
}

void RoomPainter::drawGrid(const QColor &color)
{
    const RoomDisplay &display = m_room.display();
    const GridWindow grid =
        visibleGrid(display.gridExtent * display.unitSize, display.gridSpacing, clipFromModel());
    glColor3ub(static_cast<GLubyte>(color.red()), static_cast<GLubyte>(color.green()),
               static_cast<GLubyte>(color.blue()));
    glDisable(GL_LIGHTING);
    glLineWidth(1.0F);
    glBegin(GL_LINES);
    for (int i = 0; i < grid.alongY.count; ++i) {
        glVertex3d(grid.alongY.at(i), -grid.halfSize, 0.0);
        glVertex3d(grid.alongY.at(i), grid.halfSize, 0.0);
    }
    for (int i = 0; i < grid.alongX.count; ++i) {
        glVertex3d(-grid.halfSize, grid.alongX.at(i), 0.0);
        glVertex3d(grid.halfSize, grid.alongX.at(i), 0.0);
    }
    glEnd();
}

void RoomPainter::drawText(const QString &text, const bsVector &position)
{
    const bsMatrix clip = clipFromModel();
    if (!clip.isFinite() || !position.isFinite() || !isInFrontOfTheEye(clip, position))
        return;
    // No string literal of Qt: the program's font cache keeps the name, and the literal is gone when the
    // plug-in is.
    const QFont font(QString::fromLatin1("Times"), 10, QFont::Bold);
    if (m_canvas.devicePixelRatioF() == 1.0) {
        m_canvas.renderText(position.x, position.y, position.z, text, font);
        return;
    }
    // The overload with a position in space mistakes device pixels for the widget's own.
    const bsVector ndc = clip.transformPoint(position);
    m_canvas.renderText(qRound((ndc.x + 1.0) / 2.0 * m_canvas.width()),
                        qRound((1.0 - ndc.y) / 2.0 * m_canvas.height()), text, font);
}
