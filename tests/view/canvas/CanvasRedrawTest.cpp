#include "AbcGLCanvas.h"

#include "CountingCanvas.h"
#include "RoomTrafoData.h"
#include "TestRegistry.h"
#include "abcRoom.h"

#include <QtTest>

#include <ctime>
#include <functional>
#include <limits>
#include <vector>

class CanvasRedrawTest : public QObject
{
    Q_OBJECT
private slots:
    void shouldRedrawAtOnceAndOncePerChange_data()
    {
        QTest::addColumn<int>("change");
        QTest::addColumn<int>("paintings");
        const char *const names[] = {"long axes",
                                     "factor",
                                     "XY",
                                     "YZ",
                                     "XZ",
                                     "XY colour",
                                     "YZ colour",
                                     "XZ colour",
                                     "scale unit",
                                     "rotateView",
                                     "setViewOrientation",
                                     "translateView",
                                     "setViewPosition",
                                     "rotateViewBegin",
                                     "rotateViewEnd",
                                     "rotateRoom angles",
                                     "rotateRoom matrix",
                                     "setRoomOrientation",
                                     "setRoomPosition",
                                     "translateRoom",
                                     "saveCurrentRoom",
                                     "undo",
                                     "redo",
                                     "silent: saveCurrentView",
                                     "silent: transformView",
                                     "silent: undoRoom",
                                     "silent: redoRoom",
                                     "silent: getBestZValue"};
        int change = 0;
        for (const char *name : names)
            QTest::newRow(name) << change++ << (QByteArray(name).startsWith("silent") ? 0 : 1);
    }
    void shouldRedrawAtOnceAndOncePerChange()
    {
        QFETCH(int, change);
        QFETCH(int, paintings);
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        QColor color(1, 2, 3);
        const std::vector<std::function<void()>> changes = {
            [&] { canvas.showLongAxes(true); },
            [&] { canvas.setLongAxesFactor(2.0); },
            [&] { canvas.showXYGrid(true); },
            [&] { canvas.showYZGrid(true); },
            [&] { canvas.showXZGrid(true); },
            [&] { canvas.setXYGridColor(color); },
            [&] { canvas.setYZGridColor(color); },
            [&] { canvas.setXZGridColor(color); },
            [&] { canvas.setScaleUnit(4.0); },
            [&] { canvas.rotateView(1.0, 2.0, 3.0); },
            [&] { canvas.setViewOrientation({}); },
            [&] { canvas.translateView(1.0, 2.0, 3.0); },
            [&] { canvas.setViewPosition({}); },
            [&] { canvas.rotateViewBegin(); },
            [&] { canvas.rotateViewEnd(); },
            [&] { canvas.rotateRoom(1.0, 2.0, 3.0); },
            [&] { canvas.rotateRoom(bsMatrix()); },
            [&] { canvas.setRoomOrientation({}); },
            [&] { canvas.setRoomPosition({}); },
            [&] { canvas.translateRoom(1.0, 2.0, 3.0); },
            [&] { canvas.saveCurrentRoom(); },
            [&] { canvas.undo(); },
            [&] { canvas.redo(); },
            [&] { canvas.saveCurrentView(); },
            [&] { canvas.transformView({}); },
            [&] { canvas.undoRoom(); },
            [&] { canvas.redoRoom(); },
            [&] { canvas.getBestZValue(); },
        };
        const int before = canvas.paintings();
        changes[static_cast<std::size_t>(change)]();
        QCOMPARE(canvas.paintings() - before, paintings);
    }

    void shouldNotRedrawWhenNothingChanged()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        const int before = canvas.paintings();
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QCOMPARE(canvas.paintings(), before);
    }

    void shouldRedrawAfterALoad()
    {
        CountingCanvas canvas;
        showCanvas(canvas);
        const int before = canvas.paintings();
        canvas.room()->loadRoom({});
        QTRY_VERIFY(canvas.paintings() > before);
    }

    void shouldMeasureTheViewDistanceWithItsSize()
    {
        CountingCanvas canvas;
        QCOMPARE(canvas.getBestZValue(), 900.0);
        RoomTrafoData data;
        data.translation = {1000.0, 0.0, 0.0};
        canvas.room()->loadRoom(data);
        showCanvas(canvas);
        QVERIFY(std::abs(canvas.getBestZValue() - 2874.4385) < 0.01);
        canvas.resize(300, 600);
        QTRY_VERIFY(std::abs(canvas.getBestZValue() - 5748.877) < 0.01);
    }

    void shouldSurviveARoomThatIsNoRotation_data()
    {
        QTest::addColumn<double>("value");
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("huge") << 1e300;
        QTest::newRow("not orthonormal") << 0.7;
        QTest::newRow("zero") << 0.0;
    }
    void shouldSurviveARoomThatIsNoRotation()
    {
        QFETCH(double, value);
        CountingCanvas canvas;
        RoomTrafoData data;
        data.rotation.fill(value);
        data.translation.fill(value);
        canvas.room()->loadRoom(data);
        showCanvas(canvas);
        canvas.setScaleUnit(canvas.getBestZValue() / 300.0);
        canvas.setViewPosition({0.0, 0.0, -canvas.getBestZValue()});
        canvas.showXYGrid(true);
        canvas.rotateRoom(10.0, 0.0, 0.0);
        canvas.saveCurrentRoom();
        canvas.undo();
        canvas.redo();
        canvas.updateGL();
        QVERIFY(canvas.viewPose().matrix().isFinite());
        QVERIFY(canvas.room()->current().isFinite());
        canvas.room()->loadRoom({});
        canvas.setViewPosition({0.0, 0.0, -900.0});
        QVERIFY(canvas.room()->transformation().isFinite());
        QCOMPARE(canvas.getBestZValue(), 900.0);
    }

    void shouldNotFreezeOnHostileScaleUnits()
    {
        CountingCanvas canvas;
        canvas.room()->loadRoom({});
        showCanvas(canvas);
        canvas.showXYGrid(true);
        canvas.showYZGrid(true);
        canvas.showXZGrid(true);
        canvas.showLongAxes(true);
        const std::clock_t begin = std::clock();
        for (const double scale : {1e3, 1e6, 1e12, 1e300, -5.0, 0.0, std::numeric_limits<double>::quiet_NaN(),
                                   std::numeric_limits<double>::infinity()}) {
            canvas.setScaleUnit(scale);
            canvas.rotateView(30.0, 40.0, 50.0);
        }
        const double secondsOfProcessor = double(std::clock() - begin) / CLOCKS_PER_SEC;
        QVERIFY2(secondsOfProcessor < 5.0, qPrintable(QString::number(secondsOfProcessor)));
    }
};

ROOM_TEST_CLASS(CanvasRedrawTest)
#include "CanvasRedrawTest.moc"
