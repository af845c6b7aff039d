#include "AbcGLCanvas.h"

#include "ObjectWatch.h"
#include "RoomPainter.h"
#include "abcRoom.h"

#include <QMenu>
#include <QMouseEvent>

namespace
{

constexpr int angleDeltaPerStep = 120;

} // namespace

AbcGLCanvas::AbcGLCanvas(QWidget *parent, void *owner)
    : QGLWidget(parent)
    , m_room(new abcRoom(this))
    , m_owner(owner)
{
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    connect(m_room, &abcRoom::roomModified, this, &AbcGLCanvas::roomModified);
    connect(m_room, &abcRoom::roomLoaded, this, [this] {
        showHistoryState();
        update();
    });
}

AbcGLCanvas::~AbcGLCanvas() = default;

bool AbcGLCanvas::isRoomLoaded() const
{
    return m_room->isLoaded();
}

double AbcGLCanvas::scaleUnit() const
{
    return m_room->unitSize();
}

void AbcGLCanvas::setScaleUnit(double scaleUnit)
{
    m_room->setUnitSize(scaleUnit);
    updateGL();
}

void AbcGLCanvas::rotateView(double x, double y, double z)
{
    m_pose.rotate(x, y, z);
    updateGL();
}

void AbcGLCanvas::setViewOrientation(const bsMatrix &m)
{
    m_pose.setOrientation(m);
    updateGL();
}

void AbcGLCanvas::translateView(double x, double y, double z)
{
    m_pose.translate(x, y, z);
    updateGL();
}

void AbcGLCanvas::setViewPosition(const bsVector &position)
{
    m_pose.setPosition(position);
    updateGL();
}

void AbcGLCanvas::transformView(const bsMatrix &m)
{
    m_pose.transform(m);
}

void AbcGLCanvas::showLongAxes(bool showLongAxes)
{
    m_room->display().longAxes = showLongAxes;
    updateGL();
}

void AbcGLCanvas::setLongAxesFactor(double longAxesFactor)
{
    m_room->display().longAxesFactor = longAxesFactor;
    updateGL();
}

void AbcGLCanvas::showXYGrid(bool showXY)
{
    m_room->display().showXY = showXY;
    updateGL();
}

void AbcGLCanvas::showYZGrid(bool showYZ)
{
    m_room->display().showYZ = showYZ;
    updateGL();
}

void AbcGLCanvas::showXZGrid(bool showXZ)
{
    m_room->display().showXZ = showXZ;
    updateGL();
}

void AbcGLCanvas::setXYGridColor(QColor &XYColor)
{
    m_room->display().xyColor = XYColor;
    updateGL();
}

void AbcGLCanvas::setYZGridColor(QColor &XYColor)
{
    m_room->display().yzColor = XYColor;
    updateGL();
}

void AbcGLCanvas::setXZGridColor(QColor &XYColor)
{
    m_room->display().xzColor = XYColor;
    updateGL();
}

void AbcGLCanvas::rotateViewBegin()
{
    m_drag.rotate();
    updateGL();
}

void AbcGLCanvas::rotateViewEnd()
{
    m_drag.end();
    updateGL();
}

double AbcGLCanvas::getBestZValue()
{
    return bestViewDistance(*m_room, m_projection, m_extraPoint);
}

void AbcGLCanvas::undo()
{
    undoRoom();
    updateGL();
}

void AbcGLCanvas::redo()
{
    redoRoom();
    updateGL();
}

void AbcGLCanvas::rotateRoom(double x, double y, double z)
{
    m_room->setPendingOrientation(x, y, z);
    updateGL();
}

void AbcGLCanvas::rotateRoom(const bsMatrix &m)
{
    m_room->setPendingOrientationMatrix(m);
    updateGL();
}

void AbcGLCanvas::setRoomOrientation(const bsMatrix &m)
{
    bsMatrix inverse = m_room->current();
    inverse.invertRigid();
    m_room->setPendingOrientation(inverse.toOrientation() * m.toOrientation());
    updateGL();
}

void AbcGLCanvas::setRoomPosition(const bsVector &v)
{
    bsMatrix inverse = m_room->current();
    inverse.invertRigid();
    const bsVector position = inverse.transformPoint(v);
    m_room->setPendingPosition(position.x, position.y, position.z);
    updateGL();
}

void AbcGLCanvas::translateRoom(double x, double y, double z)
{
    m_room->setPendingPosition(x, y, z);
    updateGL();
}

void AbcGLCanvas::saveCurrentRoom()
{
    transformView(m_room->pendingMatrix());
    if (m_room->commit())
        showHistoryState();
    updateGL();
}

void AbcGLCanvas::undoRoom()
{
    followHistory(&abcRoom::undo);
}

void AbcGLCanvas::redoRoom()
{
    followHistory(&abcRoom::redo);
}

void AbcGLCanvas::initializeGL()
{
    RoomPainter::prepare();
}

void AbcGLCanvas::resizeGL(int width, int height)
{
    m_projection.width = qMax(width, 1);
    m_projection.height = qMax(height, 1);
    RoomPainter::project(m_projection);
    updateGL();
}

void AbcGLCanvas::paintGL()
{
    RoomPainter(*this, *m_room).draw(m_pose.matrix());
}

void AbcGLCanvas::paintEvent(QPaintEvent *event)
{
    if (canDraw())
        QGLWidget::paintEvent(event);
}

void AbcGLCanvas::mousePressEvent(QMouseEvent *event)
{
    const ObjectWatch self(this);
    const QPoint position = event->pos();
    const bool asksForMenu =
        event->button() == Qt::RightButton && !event->modifiers().testFlag(Qt::ControlModifier);
    m_drag.press(event->button(), event->modifiers());
    if (asksForMenu && m_contextMenu != nullptr)
        m_contextMenu->exec(event->globalPos());
    if (!self)
        return; // the menu may have ended with the window
    m_drag.startAt(position);
    updateGL();
}

void AbcGLCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_room->isLoaded() || !m_drag.isOn()) {
        m_drag.startAt(event->pos());
        return;
    }
    m_drag.to(event->pos(), scaleUnit());
    updateGL();
    emit storeViewRequest();
}

void AbcGLCanvas::mouseReleaseEvent(QMouseEvent *)
{
    if (!m_drag.isOn())
        return;
    m_drag.end();
    emit storeViewRequest();
    updateGL();
}

void AbcGLCanvas::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore();
        return;
    }
    event->accept();
    const int steps = event->angleDelta().y() / angleDeltaPerStep;
    translateView(0.0, 0.0, steps * scaleUnit());
    emit storeViewRequest();
    updateGL();
}

void AbcGLCanvas::showHistoryState()
{
    emit canUndo(m_room->canUndo());
    emit canRedo(m_room->canRedo());
}

void AbcGLCanvas::followHistory(void (abcRoom::*step)())
{
    bsMatrix newFromOld = m_room->current();
    newFromOld.invertRigid();
    (m_room->*step)();
    showHistoryState();
    newFromOld.postMultiply(m_room->current());
    transformView(newFromOld);
}
