#include "AbcGLCanvas.h"

#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QGuiApplication>
#include <QVBoxLayout>
#include <QtTest>

class CanvasWithoutOpenGLTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldTellThatItCannotDraw()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
        const AbcGLCanvas canvas(nullptr, nullptr);
        QVERIFY(!canvas.canDraw());
    }

    void shouldDoEverythingButDraw()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        auto *canvas = new AbcGLCanvas(&window, nullptr);
        layout.addWidget(canvas);
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        canvas->room()->loadRoom({});
        canvas->showXYGrid(true);
        canvas->rotateRoom(10.0, 20.0, 30.0);
        canvas->saveCurrentRoom();
        canvas->undo();
        canvas->redo();
        canvas->setViewPosition({0.0, 0.0, -canvas->getBestZValue()});
        window.resize(500, 200);
        QCoreApplication::processEvents();
        QTest::mousePress(canvas, Qt::LeftButton, Qt::ControlModifier, {20, 20});
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::ControlModifier, {20, 20});
        QVERIFY(canvas->room()->canUndo());
        QVERIFY(canvas->viewPose().position() == bsVector(0.0, 0.0, -900.0));
    }

    void shouldLeaveTheRestOfItsWindowPaintable()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        layout.addWidget(new AbcGLCanvas(&window, nullptr));
        window.resize(200, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.grab().size(), QSize(200, 100));
        window.repaint();
    }
};

ROOM_TEST_CLASS(CanvasWithoutOpenGLTest)
#include "CanvasWithoutOpenGLTest.moc"
