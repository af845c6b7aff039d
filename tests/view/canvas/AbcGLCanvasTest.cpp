#include "AbcGLCanvas.h"

#include "EigenView.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QSignalSpy>
#include <QtTest>

using namespace EigenView;

namespace
{

Eigen::Matrix4d view(const AbcGLCanvas &canvas)
{
    return eigen(canvas.viewPose().matrix());
}

Eigen::Matrix4d shift(double x, double y, double z)
{
    return motion(turn(0.0, 0.0, 0.0), {x, y, z});
}

} // namespace

class AbcGLCanvasTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldDeclareSignalsAndSlotsInOrder()
    {
        const QStringList expected = {
            QStringLiteral("translateViewRequest(double,double,double) x y z"),
            QStringLiteral("rotateViewRequest(double,double,double) x y z"),
            QStringLiteral("storeViewRequest()"),
            QStringLiteral("canUndo(bool) enableUndo"),
            QStringLiteral("canRedo(bool) enableRedo"),
            QStringLiteral("canSetAxisToMarkers(bool) enableSetAxisToMarkers"),
            QStringLiteral("canSetParallelAxes(bool) enableSetParallelAxes"),
            QStringLiteral("roomModified(bool) roomModified"),
            QStringLiteral("canUndoRoom(bool) enableUndo"),
            QStringLiteral("canRedoRoom(bool) enableRedo"),
            QStringLiteral("saveCurrentView()"),
            QStringLiteral("rotateView(double,double,double) x y z"),
            QStringLiteral("setViewOrientation(bsMatrix) m"),
            QStringLiteral("translateView(double,double,double) x y z"),
            QStringLiteral("setViewPosition(bsVector) position"),
            QStringLiteral("transformView(bsMatrix) m"),
            QStringLiteral("showLongAxes(bool) showLongAxes"),
            QStringLiteral("setLongAxesFactor(double) longAxesFactor"),
            QStringLiteral("showXYGrid(bool) showXY"),
            QStringLiteral("showYZGrid(bool) showYZ"),
            QStringLiteral("showXZGrid(bool) showXZ"),
            QStringLiteral("setXYGridColor(QColor&) XYColor"),
            QStringLiteral("setYZGridColor(QColor&) XYColor"),
            QStringLiteral("setXZGridColor(QColor&) XYColor"),
            QStringLiteral("rotateViewBegin()"),
            QStringLiteral("rotateViewEnd()"),
            QStringLiteral("getBestZValue()"),
            QStringLiteral("undo()"),
            QStringLiteral("redo()"),
            QStringLiteral("rotateRoom(double,double,double) x y z"),
            QStringLiteral("rotateRoom(bsMatrix) m"),
            QStringLiteral("setRoomOrientation(bsMatrix) m"),
            QStringLiteral("setRoomPosition(bsVector) v"),
            QStringLiteral("translateRoom(double,double,double) x y z"),
            QStringLiteral("saveCurrentRoom()"),
            QStringLiteral("undoRoom()"),
            QStringLiteral("redoRoom()"),
        };
        const QMetaObject &meta = AbcGLCanvas::staticMetaObject;
        QStringList declared;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            QByteArray text = meta.method(i).methodSignature();
            const QList<QByteArray> names = meta.method(i).parameterNames();
            for (const QByteArray &name : names)
                text += ' ' + name;
            declared << QString::fromLatin1(text);
        }
        QCOMPARE(declared, expected);
        QCOMPARE(meta.method(meta.methodOffset() + 9).methodType(), QMetaMethod::Signal);
        QCOMPARE(meta.method(meta.methodOffset() + 10).methodType(), QMetaMethod::Slot);
        QCOMPARE(QByteArray(meta.method(meta.methodOffset() + 26).typeName()), QByteArray("double"));
    }

    void shouldOwnItsRoomAndKeepItsOwnersValue()
    {
        int value = 0;
        QWidget parent;
        const AbcGLCanvas canvas(&parent, &value);
        QCOMPARE(canvas.owner(), &value);
        QCOMPARE(canvas.room()->parent(), &canvas);
        QCOMPARE(canvas.focusPolicy(), Qt::StrongFocus);
        QVERIFY(!canvas.isRoomLoaded());
        QCOMPARE(canvas.scaleUnit(), 5.0);
    }

    void shouldPassOnThatTheRoomWasModified()
    {
        const AbcGLCanvas canvas(nullptr, nullptr);
        QSignalSpy modified(&canvas, &AbcGLCanvas::roomModified);
        canvas.room()->loadRoom({});
        canvas.room()->setPendingPosition(1.0, 0.0, 0.0);
        canvas.room()->commit();
        QCOMPARE(modified, (QList<QVariantList>{{false}, {true}}));
    }

    void shouldTellTheHistoryStateAfterALoadAndAReset()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        canvas.translateRoom(1.0, 0.0, 0.0);
        canvas.saveCurrentRoom();
        QSignalSpy canUndo(&canvas, &AbcGLCanvas::canUndo);
        QSignalSpy canRedo(&canvas, &AbcGLCanvas::canRedo);
        canvas.room()->resetRoom();
        QCOMPARE(canUndo, QList<QVariantList>{{false}});
        QCOMPARE(canRedo, QList<QVariantList>{{false}});
        canvas.room()->loadRoom({});
        QCOMPARE(canUndo.last(), QVariantList{false});
        QCOMPARE(canRedo.last(), QVariantList{false});
    }

    void shouldMoveTheViewThroughItsSlots()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -300.0)));
        canvas.rotateView(10.0, 20.0, 30.0);
        canvas.translateView(1.0, 2.0, 3.0);
        QVERIFY(agree(view(canvas), motion(turn(10.0, 20.0, 30.0), {1.0, 2.0, -297.0})));
        canvas.rotateView(0.0, 0.0, 0.0);
        QVERIFY(agree(view(canvas), shift(1.0, 2.0, -297.0)));
        canvas.saveCurrentView();
        canvas.translateView(1.0, 1.0, 1.0);
        QVERIFY(agree(view(canvas), shift(2.0, 3.0, -296.0)));
        canvas.setViewPosition({7.0, 8.0, 9.0});
        canvas.setViewOrientation(matrix(motion(turn(0.0, 45.0, 0.0), {0.0, 0.0, 0.0})));
        const Eigen::Matrix4d set = motion(turn(0.0, 45.0, 0.0), {7.0, 8.0, 9.0});
        QVERIFY(agree(view(canvas), set));
        const Eigen::Matrix4d step = motion(turn(5.0, 6.0, 7.0), {1.0, 2.0, 3.0});
        canvas.transformView(matrix(step));
        QVERIFY(agree(view(canvas), set * step));
    }

    void shouldSetThePendingEditAbsolutely()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        canvas.rotateRoom(1.0, 2.0, 3.0);
        canvas.rotateRoom(10.0, 20.0, 30.0);
        canvas.translateRoom(1.0, 1.0, 1.0);
        canvas.translateRoom(4.0, 5.0, 6.0);
        QVERIFY(
            agree(eigen(canvas.room()->pendingMatrix()), motion(turn(10.0, 20.0, 30.0), {4.0, 5.0, 6.0})));
        canvas.rotateRoom(matrix(motion(turn(-50.0, 60.0, 0.0), {9.0, 9.0, 9.0})));
        QVERIFY(
            agree(eigen(canvas.room()->pendingMatrix()), motion(turn(-50.0, 60.0, 0.0), {4.0, 5.0, 6.0})));
    }

    void shouldSetTheRoomSoThatCommittedAndPendingEditsGiveTheArgument()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        canvas.rotateRoom(10.0, 20.0, 30.0);
        canvas.translateRoom(4.0, 5.0, 6.0);
        canvas.saveCurrentRoom();
        const Eigen::Matrix4d wanted = motion(turn(-70.0, 15.0, 100.0), {100.0, 200.0, 300.0});
        canvas.setRoomOrientation(matrix(wanted));
        canvas.setRoomPosition({100.0, 200.0, 300.0});
        const Eigen::Matrix4d both = eigen(canvas.room()->current()) * eigen(canvas.room()->pendingMatrix());
        QVERIFY(agree(both, wanted));
    }

    void shouldKeepTheSeenFrameWhenCommittingUndoingAndRedoing()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        canvas.room()->loadRoom({});
        canvas.rotateView(15.0, 25.0, 35.0);
        canvas.saveCurrentView();
        QSignalSpy canUndo(&canvas, &AbcGLCanvas::canUndo);
        QSignalSpy canRedo(&canvas, &AbcGLCanvas::canRedo);
        const Eigen::Matrix4d before = view(canvas);
        const Eigen::Matrix4d edit = motion(turn(10.0, 20.0, 30.0), {4.0, 5.0, 6.0});
        canvas.rotateRoom(10.0, 20.0, 30.0);
        canvas.translateRoom(4.0, 5.0, 6.0);
        canvas.saveCurrentRoom();
        QVERIFY(agree(view(canvas), before * edit));
        canvas.undo();
        QVERIFY(agree(view(canvas), before));
        canvas.redo();
        QVERIFY(agree(view(canvas), before * edit));
        canvas.undoRoom();
        QVERIFY(agree(view(canvas), before));
        canvas.redoRoom();
        QVERIFY(agree(view(canvas), before * edit));
        QCOMPARE(canUndo, (QList<QVariantList>{{true}, {false}, {true}, {false}, {true}}));
        QCOMPARE(canRedo, (QList<QVariantList>{{false}, {true}, {false}, {true}, {false}}));
    }

    void shouldNotTellTheHistoryStateWhenNothingWasCommitted()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        QSignalSpy canUndo(&canvas, &AbcGLCanvas::canUndo);
        canvas.saveCurrentRoom();
        QCOMPARE(canUndo.count(), 0);
    }

    void shouldKeepItsDisplaySettingsInTheRoom()
    {
        AbcGLCanvas canvas(nullptr, nullptr);
        QColor xy(1, 2, 3);
        QColor yz(4, 5, 6);
        QColor xz(7, 8, 9);
        canvas.showLongAxes(true);
        canvas.setLongAxesFactor(2.5);
        canvas.showXYGrid(true);
        canvas.showYZGrid(true);
        canvas.showXZGrid(true);
        canvas.setXYGridColor(xy);
        canvas.setYZGridColor(yz);
        canvas.setXZGridColor(xz);
        canvas.setScaleUnit(3.0);
        const RoomDisplay &display = canvas.room()->display();
        QVERIFY(display.longAxes && display.showXY && display.showYZ && display.showXZ);
        QCOMPARE(display.longAxesFactor, 2.5);
        QCOMPARE(display.xyColor, xy);
        QCOMPARE(display.yzColor, yz);
        QCOMPARE(display.xzColor, xz);
        QCOMPARE(display.unitSize, 3.0);
    }
};

ROOM_TEST_CLASS(AbcGLCanvasTest)
#include "AbcGLCanvasTest.moc"
