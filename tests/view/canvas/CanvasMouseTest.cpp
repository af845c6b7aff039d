#include "AbcGLCanvas.h"

#include "CountingCanvas.h"
#include "EigenView.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>
#include <QtTest>

using namespace EigenView;

namespace
{

const QPoint start(100, 120);

void press(const QWidget &canvas, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::mousePress(canvas.windowHandle(), button, modifiers, start);
}

void moveTo(const QWidget &canvas, const QPoint &distance)
{
    QTest::mouseMove(canvas.windowHandle(), start + distance);
    QCoreApplication::processEvents();
}

void release(const QWidget &canvas, Qt::MouseButton button, const QPoint &distance = {})
{
    QTest::mouseRelease(canvas.windowHandle(), button, Qt::NoModifier, start + distance);
}

/// Returns whether the event was taken.
bool turnWheel(AbcGLCanvas &canvas, int angleDelta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(start, canvas.mapToGlobal(start), {}, {0, angleDelta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas, &event);
    return event.isAccepted();
}

Eigen::Matrix4d view(const AbcGLCanvas &canvas)
{
    return eigen(canvas.viewPose().matrix());
}

Eigen::Matrix4d shift(double x, double y, double z)
{
    return motion(turn(0.0, 0.0, 0.0), {x, y, z});
}

} // namespace

class CanvasMouseTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldPanWithControlAndTheLeftButton_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::newRow("control") << static_cast<int>(Qt::ControlModifier);
        QTest::newRow("control wins over shift") << static_cast<int>(Qt::ControlModifier | Qt::ShiftModifier);
    }
    void shouldPanWithControlAndTheLeftButton()
    {
        QFETCH(int, modifiers);
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        canvas.setScaleUnit(2.0);
        showCanvas(canvas);
        press(canvas, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
        moveTo(canvas, {10, 4});
        QVERIFY(agree(view(canvas), shift(20.0, -8.0, -300.0)));
        moveTo(canvas, {7, -6});
        QVERIFY(agree(view(canvas), shift(14.0, 12.0, -300.0)));
        release(canvas, Qt::LeftButton, {7, -6});
        QVERIFY(agree(view(canvas), shift(14.0, 12.0, -300.0)));
    }

    void shouldZoomWithShiftAndTheLeftButton()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        press(canvas, Qt::LeftButton, Qt::ShiftModifier);
        moveTo(canvas, {30, 8});
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -260.0)));
        release(canvas, Qt::LeftButton, {30, 8});
    }

    void shouldRotateWithControlAndTheRightButton()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        press(canvas, Qt::RightButton, Qt::ControlModifier);
        moveTo(canvas, {30, 10});
        moveTo(canvas, {35, 30});
        release(canvas, Qt::RightButton, {35, 30});
        const Eigen::Quaterniond expected = turn(20.0, 5.0, 0.0) * turn(10.0, 30.0, 0.0);
        QVERIFY(agree(view(canvas), motion(expected, {0.0, 0.0, -300.0})));
    }

    void shouldNotMoveWithoutAModifierOrWithOtherButtons_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("left") << static_cast<int>(Qt::LeftButton) << 0;
        QTest::newRow("left with alt")
            << static_cast<int>(Qt::LeftButton) << static_cast<int>(Qt::AltModifier);
        QTest::newRow("middle") << static_cast<int>(Qt::MiddleButton)
                                << static_cast<int>(Qt::ControlModifier);
        QTest::newRow("right without a menu") << static_cast<int>(Qt::RightButton) << 0;
    }
    void shouldNotMoveWithoutAModifierOrWithOtherButtons()
    {
        QFETCH(int, button);
        QFETCH(int, modifiers);
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        QSignalSpy store(&canvas, &AbcGLCanvas::storeViewRequest);
        press(canvas, Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers));
        moveTo(canvas, {30, 10});
        release(canvas, Qt::MouseButton(button), {30, 10});
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -300.0)));
        QCOMPARE(store.count(), 0);
    }

    void shouldAskToStoreTheViewAfterEachStepAndAtTheEnd()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        QSignalSpy store(&canvas, &AbcGLCanvas::storeViewRequest);
        press(canvas, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(store.count(), 0);
        moveTo(canvas, {1, 0});
        moveTo(canvas, {2, 0});
        moveTo(canvas, {3, 0});
        QCOMPARE(store.count(), 3);
        release(canvas, Qt::LeftButton, {3, 0});
        QCOMPARE(store.count(), 4);
    }

    void shouldRedrawOnceForEachStepOfADrag()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        int before = canvas.paintings();
        press(canvas, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(canvas.paintings(), before + 1);
        before = canvas.paintings();
        moveTo(canvas, {5, 5});
        QCOMPARE(canvas.paintings(), before + 1);
        release(canvas, Qt::LeftButton, {5, 5});
        QCOMPARE(canvas.paintings(), before + 2);
    }

    void shouldMoveNothingWithoutARoom()
    {
        CountingCanvas canvas;
        showCanvas(canvas);
        QSignalSpy store(&canvas, &AbcGLCanvas::storeViewRequest);
        press(canvas, Qt::LeftButton, Qt::ControlModifier);
        moveTo(canvas, {30, 10});
        QCOMPARE(store.count(), 0);
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -300.0)));
        canvas.room()->loadRoom({});
        moveTo(canvas, {31, 10});
        QVERIFY(agree(view(canvas), shift(5.0, 0.0, -300.0)));
        release(canvas, Qt::LeftButton);
    }

    void shouldRotateWhileAnEditorIsTurned()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        canvas.rotateViewBegin();
        press(canvas, Qt::LeftButton);
        moveTo(canvas, {0, 12});
        QVERIFY(agree(view(canvas), motion(turn(12.0, 0.0, 0.0), {0.0, 0.0, -300.0})));
        canvas.rotateViewEnd();
        moveTo(canvas, {0, 40});
        QVERIFY(agree(view(canvas), motion(turn(12.0, 0.0, 0.0), {0.0, 0.0, -300.0})));
        release(canvas, Qt::LeftButton);
    }

    void shouldZoomByWholeWheelSteps_data()
    {
        QTest::addColumn<int>("delta");
        QTest::addColumn<double>("z");
        QTest::newRow("one step") << 120 << -295.0;
        QTest::newRow("two steps back") << -240 << -310.0;
        QTest::newRow("the rest is dropped") << 230 << -295.0;
        QTest::newRow("the rest is dropped backwards") << -230 << -305.0;
        QTest::newRow("less than a step") << 119 << -300.0;
        QTest::newRow("less than a step back") << -119 << -300.0;
    }
    void shouldZoomByWholeWheelSteps()
    {
        QFETCH(int, delta);
        QFETCH(double, z);
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        QSignalSpy store(&canvas, &AbcGLCanvas::storeViewRequest);
        const int before = canvas.paintings();
        QVERIFY(turnWheel(canvas, delta, Qt::ControlModifier));
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, z)));
        QCOMPARE(store.count(), 1);
        QCOMPARE(canvas.paintings(), before + 2);
        QVERIFY(turnWheel(canvas, 120, Qt::ControlModifier));
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, z + 5.0)));
    }

    void shouldIgnoreTheWheelWithoutControl()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        QSignalSpy store(&canvas, &AbcGLCanvas::storeViewRequest);
        QVERIFY(!turnWheel(canvas, 120, Qt::NoModifier));
        QVERIFY(!turnWheel(canvas, 120, Qt::ShiftModifier));
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -300.0)));
        QCOMPARE(store.count(), 0);
    }

    void shouldShowTheMenuOfTheRightButtonAtThePointer()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        canvas.move(170, 90);
        showCanvas(canvas);
        QTRY_COMPARE(canvas.mapToGlobal(QPoint()), QPoint(170, 90));
        QMenu menu;
        menu.addAction(QStringLiteral("Some entry"));
        canvas.setContextMenu(&menu);
        QPoint place;
        int showings = 0;
        connect(&menu, &QMenu::aboutToShow, &menu, [&] {
            ++showings;
            QTimer::singleShot(0, &menu, [&] {
                place = menu.pos();
                menu.close();
            });
        });
        press(canvas, Qt::RightButton);
        QCOMPARE(showings, 1);
        QCOMPARE(place, canvas.mapToGlobal(start));
        moveTo(canvas, {30, 30});
        release(canvas, Qt::RightButton, {30, 30});
        QCOMPARE(showings, 1);
        QVERIFY(agree(view(canvas), shift(0.0, 0.0, -300.0)));
    }

    void shouldSurviveThatTheMenuEndsItsWindow()
    {
        QPointer<QWidget> window = new QWidget;
        auto *canvas = new AbcGLCanvas(window, nullptr);
        canvas->resize(400, 300);
        window->resize(400, 300);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QMenu menu;
        menu.addAction(QStringLiteral("Some entry"));
        canvas->setContextMenu(&menu);
        const QPointer<AbcGLCanvas> guard(canvas);
        connect(&menu, &QMenu::aboutToShow, &menu, [&] {
            QTimer::singleShot(0, &menu, [&] {
                delete canvas;
                menu.close();
            });
        });
        QMouseEvent event(QEvent::MouseButtonPress, start, Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QCoreApplication::sendEvent(canvas, &event);
        QVERIFY(guard.isNull());
        delete window;
    }
};

ROOM_TEST_CLASS(CanvasMouseTest)
#include "CanvasMouseTest.moc"
