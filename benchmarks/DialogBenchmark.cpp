#include "AbcGLCanvas.h"
#include "BackendVersions.h"
#include "BenchmarkLimits.h"
#include "RecordingHost.h"
#include "RoomAdjustmentDlg2g.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>

#include <chrono>
#include <functional>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::duration<double, std::milli> longestOpening(50.0);

/// Runs `seen` when the watched widget is painted for the first time.
class FirstPaint final : public QObject
{
public:
    FirstPaint(QWidget *watched, std::function<void()> seen)
        : QObject(watched)
        , m_seen(std::move(seen))
    {
        watched->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { m_seen(); });
        }
        return false;
    }

private:
    std::function<void()> m_seen;
};

struct Opened {
    Opened()
        : versions{0, 0, 0, 1, 24, -1, QString()}
        , dialog(&host, nullptr, &versions, QStringLiteral("benchmark"))
    {
    }
    RecordingHost host;
    BackendVersions versions;
    RoomAdjustmentDlg2g dialog;
};

/// Triggers the opening and runs `inside` once the dialog has been painted.
void open(Opened &opened, const std::function<void()> &inside)
{
    auto *paint = new FirstPaint(&opened.dialog, [&] {
        inside();
        opened.dialog.reject();
    });
    opened.dialog.update_and_exec();
    delete paint;
}

/// From the trigger to the first paint, on a channel that answers at once.
void opening(benchmark::State &state)
{
    Opened opened;
    open(opened, [] {});
    std::chrono::duration<double, std::milli> sum(0.0);
    for (auto _ : state) {
        const auto begin = Clock::now();
        open(opened, [&] {
            const std::chrono::duration<double> time = Clock::now() - begin;
            state.SetIterationTime(time.count());
            sum += time;
        });
    }
    BenchmarkLimits::expectAtMost(state, sum / static_cast<double>(state.iterations()), longestOpening);
}
BENCHMARK(opening)->Unit(benchmark::kMillisecond)->UseManualTime();

/// One step of a box of the fine panel, with the redrawn picture, against a bare redraw.
void spinBoxStep(benchmark::State &state)
{
    Opened opened;
    open(opened, [&] {
        opened.dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(1);
        QTest::qWait(50);
        auto *box = opened.dialog.findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinBox_rz"));
        for (auto _ : state)
            box->stepBy(box->value() > 170.0 ? -300 : 1);
    });
}
BENCHMARK(spinBoxStep)->Unit(benchmark::kMillisecond)->UseRealTime();

void bareRedraw(benchmark::State &state)
{
    Opened opened;
    open(opened, [&] {
        opened.dialog.findChild<QTabWidget *>(QStringLiteral("tabWidget"))->setCurrentIndex(1);
        QTest::qWait(50);
        auto *view = opened.dialog.findChild<AbcGLCanvas *>();
        for (auto _ : state)
            view->updateGL();
    });
}
BENCHMARK(bareRedraw)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
