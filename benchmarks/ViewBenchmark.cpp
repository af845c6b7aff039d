#include "AbcGLCanvas.h"
#include "BenchmarkLimits.h"
#include "RoomTrafoData.h"
#include "abcRoom.h"

#include <QMouseEvent>
#include <QtTest>

#include <algorithm>
#include <chrono>
#include <memory>

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr Milliseconds frameAt60PerSecond(1000.0 / 60.0);

/// A canvas of the size that counts, seen slanted from the distance that belongs to the scale unit.
std::unique_ptr<AbcGLCanvas> shownCanvas(double scaleUnit)
{
    auto canvas = std::make_unique<AbcGLCanvas>(nullptr, nullptr);
    QObject::connect(canvas.get(), &AbcGLCanvas::storeViewRequest, canvas.get(),
                     &AbcGLCanvas::saveCurrentView);
    canvas->resize(1000, 700);
    canvas->show();
    if (!QTest::qWaitForWindowExposed(canvas.get()) || !canvas->canDraw())
        return nullptr;
    canvas->setScaleUnit(scaleUnit);
    canvas->setViewPosition({0.0, 0.0, -300.0 * scaleUnit});
    canvas->rotateView(-60.0, 10.0, 20.0);
    canvas->saveCurrentView();
    QTest::qWait(100);
    return canvas;
}

void showAllGrids(AbcGLCanvas &canvas)
{
    canvas.showXYGrid(true);
    canvas.showYZGrid(true);
    canvas.showXZGrid(true);
}

void drawFrame(AbcGLCanvas &canvas)
{
    canvas.updateGL();
    glFinish();
}

void emptyFrame(benchmark::State &state)
{
    const auto canvas = shownCanvas(5.0);
    if (canvas == nullptr)
        return state.SkipWithError("no OpenGL");
    for (auto _ : state)
        drawFrame(*canvas);
}
BENCHMARK(emptyFrame)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

/// The empty frame's time in the same process, to compare with.
double emptyFrameMs(AbcGLCanvas &canvas)
{
    canvas.room()->resetRoom();
    constexpr int frames = 100;
    drawFrame(canvas);
    const auto begin = Clock::now();
    for (int i = 0; i < frames; ++i)
        drawFrame(canvas);
    return Milliseconds(Clock::now() - begin).count() / frames;
}

void frameWithoutGrids(benchmark::State &state)
{
    const auto canvas = shownCanvas(static_cast<double>(state.range(0)));
    if (canvas == nullptr)
        return state.SkipWithError("no OpenGL");
    canvas->room()->loadRoom({});
    for (auto _ : state)
        drawFrame(*canvas);
}
BENCHMARK(frameWithoutGrids)
    ->Arg(5)
    ->ArgName("scaleUnit")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

void frameWithAllGrids(benchmark::State &state)
{
    const auto canvas = shownCanvas(static_cast<double>(state.range(0)));
    if (canvas == nullptr)
        return state.SkipWithError("no OpenGL");
    const double emptyMs = emptyFrameMs(*canvas);
    canvas->room()->loadRoom({});
    showAllGrids(*canvas);
    const auto begin = Clock::now();
    for (auto _ : state)
        drawFrame(*canvas);
    const double frameMs =
        Milliseconds(Clock::now() - begin).count() / static_cast<double>(state.iterations());
    state.counters["times_empty"] = frameMs / emptyMs;
}
BENCHMARK(frameWithAllGrids)
    ->Arg(5)
    ->Arg(100)
    ->ArgName("scaleUnit")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

void sendMouse(AbcGLCanvas &canvas, QEvent::Type type, const QPoint &position)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, position, isMove ? Qt::NoButton : Qt::RightButton,
                      isRelease ? Qt::NoButton : Qt::RightButton, Qt::ControlModifier);
    QCoreApplication::sendEvent(&canvas, &event);
}

/// Turns the room all around with the mouse. The mean step must fit into 1/60 second; the slowest is shown.
void dragWithAllGrids(benchmark::State &state)
{
    const auto canvas = shownCanvas(5.0);
    if (canvas == nullptr)
        return state.SkipWithError("no OpenGL");
    canvas->room()->loadRoom({});
    showAllGrids(*canvas);
    QPoint position(500, 350);
    sendMouse(*canvas, QEvent::MouseButtonPress, position);
    Milliseconds slowest(0.0);
    Milliseconds sum(0.0);
    int step = 0;
    for (auto _ : state) {
        const auto begin = Clock::now();
        position += ++step % 3 == 0 ? QPoint(0, 2) : QPoint(2, 1);
        sendMouse(*canvas, QEvent::MouseMove, position);
        glFinish();
        const Milliseconds time = Clock::now() - begin;
        slowest = std::max(slowest, time);
        sum += time;
    }
    sendMouse(*canvas, QEvent::MouseButtonRelease, position);
    state.counters["slowest_ms"] = slowest.count();
    state.counters["frames_per_second"] = 1000.0 * static_cast<double>(state.iterations()) / sum.count();
    BenchmarkLimits::expectAtMost(state, sum / static_cast<double>(state.iterations()), frameAt60PerSecond);
}
BENCHMARK(dragWithAllGrids)
    ->Iterations(720)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

} // namespace
