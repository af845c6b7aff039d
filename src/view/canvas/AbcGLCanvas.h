#pragma once

#include "ViewDistance.h"
#include "ViewDrag.h"
#include "ViewPose.h"

#include <QGLWidget>

class QMenu;
class abcRoom;

/// The 3D view of the room. It owns the room model, draws it, and moves its camera by mouse and by slots.
///
/// Millimetres and degrees; to redraw means to paint at once. On a platform without OpenGL everything but the
/// picture works.
class AbcGLCanvas : public QGLWidget
{
    Q_OBJECT

public:
    /// `owner` is an opaque value that is kept for the caller.
    AbcGLCanvas(QWidget *parent, void *owner);
    ~AbcGLCanvas() override;

    [[nodiscard]] void *owner() const { return m_owner; }

    [[nodiscard]] abcRoom *room() const { return m_room; }
    [[nodiscard]] bool isRoomLoaded() const;

    /// Millimetres of the room per pixel of a drag and per wheel step, and the size unit of the symbols.
    [[nodiscard]] double scaleUnit() const;
    void setScaleUnit(double scaleUnit);

    /// The menu of the right mouse button; not owned, may be null.
    void setContextMenu(QMenu *menu) { m_contextMenu = menu; }

    /// False where the platform offers no OpenGL: then the widget stays blank.
    [[nodiscard]] bool canDraw() const { return isValid(); }

    [[nodiscard]] const ViewPose &viewPose() const { return m_pose; }

signals:
    void translateViewRequest(double x, double y, double z);
    void rotateViewRequest(double x, double y, double z);
    /// The pose is to be saved, after each step of a drag, at its end and after a wheel step.
    void storeViewRequest();
    void canUndo(bool enableUndo);
    void canRedo(bool enableRedo);
    void canSetAxisToMarkers(bool enableSetAxisToMarkers);
    void canSetParallelAxes(bool enableSetParallelAxes);
    void roomModified(bool roomModified);
    void canUndoRoom(bool enableUndo);
    void canRedoRoom(bool enableRedo);

public slots:
    void saveCurrentView() { m_pose.save(); }
    /// Relative to the saved pose.
    void rotateView(double x, double y, double z);
    void setViewOrientation(const bsMatrix &m);
    /// Relative to the saved pose.
    void translateView(double x, double y, double z);
    void setViewPosition(const bsVector &position);
    /// Multiplies the view matrix from the right and saves; does not redraw.
    void transformView(const bsMatrix &m);

    void showLongAxes(bool showLongAxes);
    void setLongAxesFactor(double longAxesFactor);
    void showXYGrid(bool showXY);
    void showYZGrid(bool showYZ);
    void showXZGrid(bool showXZ);
    /// The grid's colour in the plane that the slot names. The one parameter name of all three, which the
    /// meta-object shows, is meant.
    void setXYGridColor(QColor &XYColor);
    void setYZGridColor(QColor &XYColor);
    void setXZGridColor(QColor &XYColor);

    /// The controls of an orientation editor turn the view until rotateViewEnd().
    void rotateViewBegin();
    void rotateViewEnd();

    /// The distance from which the whole scene is seen, at least 900.
    double getBestZValue();

    /// One committed edit back or forth, the camera following, so that the room stays where it is seen.
    void undo();
    void redo();

    /// These set the pending edit of the room, absolute.
    void rotateRoom(double x, double y, double z);
    void rotateRoom(const bsMatrix &m);
    /// These set it so that the committed edits and it together give the argument.
    void setRoomOrientation(const bsMatrix &m);
    void setRoomPosition(const bsVector &v);
    void translateRoom(double x, double y, double z);

    /// Commits the pending edit.
    void saveCurrentRoom();
    /// As undo() and redo(), without redrawing.
    void undoRoom();
    void redoRoom();

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void showHistoryState();
    void followHistory(void (abcRoom::*step)());

    abcRoom *m_room;
    void *m_owner;
    ViewPose m_pose;
    ViewExtraPoint m_extraPoint;
    ViewDrag m_drag{m_pose};
    ViewProjection m_projection;
    QMenu *m_contextMenu = nullptr;
};
