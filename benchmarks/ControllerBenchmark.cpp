#include "BenchmarkLimits.h"
#include "RemoteController.h"
#include "ServerThreads.h"
#include "SimController.h"

#include <QTcpSocket>

#include <chrono>
#include <string>

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

const std::string request = "velmar2 get tracking room c01";
const QString loopback = QStringLiteral("127.0.0.1");

void commandInProcess(benchmark::State &state)
{
    SimController controller;
    for (auto _ : state)
        benchmark::DoNotOptimize(controller.answer(request));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(commandInProcess);

void echo(QTcpSocket &socket, const QByteArray &line)
{
    socket.write(line);
    socket.flush();
    while (!socket.canReadLine())
        socket.waitForReadyRead(5000);
    socket.readLine();
}

/// Rounds of both kinds in turns, so that a busy machine hits both alike.
// NOLINTNEXTLINE(readability-function-size): what is compared stands side by side
void commandOverTcpAgainstABareEcho(benchmark::State &state)
{
    constexpr int roundsInARow = 100;
    const ControllerThread controller;
    const EchoThread echoServer;
    RemoteController link(loopback, controller.port());
    QTcpSocket socket;
    socket.connectToHost(loopback, echoServer.port());
    if (!link.open() || !socket.waitForConnected(5000))
        return state.SkipWithError("no connection");
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const QByteArray line = QByteArray::fromStdString(link.ask(request).text) + "\n";
    Milliseconds asking(0.0), echoing(0.0);
    for (auto _ : state) {
        const auto begin = Clock::now();
        for (int i = 0; i < roundsInARow; ++i)
            echo(socket, line);
        const auto middle = Clock::now();
        for (int i = 0; i < roundsInARow; ++i)
            benchmark::DoNotOptimize(link.ask(request));
        asking += Clock::now() - middle;
        echoing += middle - begin;
    }
    const double rounds = static_cast<double>(state.iterations()) * roundsInARow;
    state.counters["commands_per_s"] = 1000.0 * rounds / asking.count();
    state.counters["echoes_per_s"] = 1000.0 * rounds / echoing.count();
    state.counters["ratio"] = echoing / asking;
    BenchmarkLimits::expectAtMost(state, asking / rounds, 2.0 * echoing / rounds);
}
BENCHMARK(commandOverTcpAgainstABareEcho)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void frameWithTwentyBodies(benchmark::State &state)
{
    constexpr std::size_t bodies = 20;
    constexpr double timesRealTime = 100.0;
    SimController controller;
    controller.machine().room.bodies.resize(bodies);
    controller.answer("velmar2 tracking start");
    const auto begin = Clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(controller.frame());
    const Milliseconds perFrame =
        Milliseconds(Clock::now() - begin) / static_cast<double>(state.iterations());
    const Milliseconds realFrame(1000.0 / framesPerSecond);
    state.SetItemsProcessed(state.iterations());
    state.counters["times_real_time"] = realFrame / perFrame;
    BenchmarkLimits::expectAtMost(state, perFrame, realFrame / timesRealTime);
}
BENCHMARK(frameWithTwentyBodies);

} // namespace
