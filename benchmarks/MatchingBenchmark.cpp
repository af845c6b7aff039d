#include "AssignmentSearch.h"
#include "BenchmarkLimits.h"
#include "BenchmarkTimes.h"
#include "PointSets.h"
#include "trafo3d.h"

#include <Eigen/Geometry>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace
{

using BenchmarkTimes::medianOf;
using BenchmarkTimes::Milliseconds;
using BenchmarkTimes::timeOf;
using Values = std::vector<double>;
using PointMap = Eigen::Map<const Eigen::Matrix3Xd>;

constexpr double spreadMm = 2000.0;
constexpr double noiseMm = 0.3;
constexpr int sampleCount = 31;

/// Short series, many of them: the median then knows nothing of other programs that take their turn.
constexpr int seriesCount = 301;
constexpr int callsPerSeries = 100;

struct Sample {
    Values references;
    Values measured;
};

void fitOnce(const Sample &sample)
{
    double transform[16];
    double rms = 0.0;
    const double *fixed = sample.references.data(), *moving = sample.measured.data();
    if (trafo3d_3trafo(transform, fixed, moving) == 0)
        (void)trafo3d_opttrafo(transform, nullptr, fixed, moving,
                               static_cast<int>(sample.references.size() / 3), &rms);
    benchmark::DoNotOptimize(transform);
    benchmark::DoNotOptimize(rms);
}

void closedFormOnce(const Sample &sample)
{
    const auto count = static_cast<Eigen::Index>(sample.references.size() / 3);
    const PointMap fixed(sample.references.data(), 3, count);
    const PointMap moving(sample.measured.data(), 3, count);
    Eigen::Matrix4d transform = Eigen::umeyama(moving, fixed, false);
    benchmark::DoNotOptimize(transform);
}

/// Medians of one call each, taken in turn so that both see the same machine.
struct FitTimes {
    Milliseconds fit;
    Milliseconds closedForm;
};

FitTimes fitTimes(int count)
{
    PointSets sets(1);
    std::vector<Sample> samples;
    for (int i = 0; i < 16; ++i) {
        const Values references = sets.box(count, spreadMm);
        samples.push_back({references, sets.moved(references, noiseMm)});
    }
    const auto repeat = [&samples](void (*work)(const Sample &)) {
        return timeOf([&samples, work]() {
                   for (std::size_t call = 0; call < callsPerSeries; ++call)
                       work(samples[call % samples.size()]);
               }) /
               callsPerSeries;
    };
    std::vector<Milliseconds> fits, closedForms;
    for (int i = 0; i < seriesCount; ++i) {
        fits.push_back(repeat(fitOnce));
        closedForms.push_back(repeat(closedFormOnce));
    }
    return {medianOf(fits), medianOf(closedForms)};
}

void fitAgainstClosedForm(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const FitTimes times = fitTimes(count);
        state.SetIterationTime(0.001 * times.fit.count());
        state.counters["closed_form_ns"] = 1e6 * times.closedForm.count();
        state.counters["ratio"] = times.fit / times.closedForm;
        BenchmarkLimits::expectAtMost(state, times.fit, (count <= 10 ? 2.0 : 4.0) * times.closedForm);
    }
}
BENCHMARK(fitAgainstClosedForm)
    ->Arg(3)
    ->Arg(4)
    ->Arg(6)
    ->Arg(8)
    ->Arg(10)
    ->Arg(50)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kNanosecond);

Milliseconds medianSearch(const std::function<Sample(PointSets &)> &make)
{
    PointSets sets(2);
    std::vector<Milliseconds> times;
    for (int i = 0; i < sampleCount; ++i) {
        const Sample sample = make(sets);
        const MatchingPoints references = asPoints(sample.references), measured = asPoints(sample.measured);
        times.push_back(timeOf([&references, &measured]() {
            AssignmentSearch search(references, measured);
            const AssignmentSearch::Result result = search.run({});
            benchmark::DoNotOptimize(result.bestMm);
        }));
    }
    return medianOf(times);
}

Sample realistic(PointSets &sets, int count)
{
    const Values references = sets.box(count, spreadMm);
    return {references, sets.shuffled(sets.moved(references, noiseMm))};
}

void searchOfRealisticPoints(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const Milliseconds search = medianSearch([count](PointSets &sets) { return realistic(sets, count); });
        state.SetIterationTime(0.001 * search.count());
        state.counters["fits"] = search / fitTimes(count).fit;
        BenchmarkLimits::expectAtMost(state, search, Milliseconds(static_cast<double>(state.range(1))));
    }
}
BENCHMARK(searchOfRealisticPoints)
    ->ArgNames({"points", "limit_ms"})
    ->Args({10, 2})
    ->Args({12, 4})
    ->Args({20, 30})
    ->Args({50, 200})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// Eight points: the search, and a loop over all 40320 orders.
void searchAgainstLoop(benchmark::State &state)
{
    const auto make = [](PointSets &sets) { return realistic(sets, 8); };
    for (auto _ : state) {
        const Milliseconds search = medianSearch(make);
        PointSets sets(3);
        std::vector<Milliseconds> loops;
        for (int i = 0; i < 5; ++i) {
            const Sample sample = make(sets);
            AssignmentSearch plain(asPoints(sample.references), asPoints(sample.measured));
            loops.push_back(timeOf([&plain]() { (void)plain.runLoop(); }));
        }
        const Milliseconds loop = medianOf(loops);
        state.SetIterationTime(0.001 * search.count());
        state.counters["loop_ms"] = loop.count();
        state.counters["times_faster"] = loop / search;
        BenchmarkLimits::expectAtMost(state, search, loop / 300.0);
    }
}
BENCHMARK(searchAgainstLoop)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

Values cube()
{
    Values values;
    for (int i = 0; i < 8; ++i)
        values.insert(values.end(), {i & 1 ? 400.0 : 0.0, i & 2 ? 400.0 : 0.0, i & 4 ? 400.0 : 0.0});
    return values;
}

Values circle()
{
    Values values;
    for (int i = 0; i < 12; ++i)
        values.insert(values.end(),
                      {900.0 * std::cos(i * M_PI / 6.0), 900.0 * std::sin(i * M_PI / 6.0), 0.0});
    return values;
}

/// Row by row, but for the third and the last point: the first three must not be on a line.
template <int size>
Values grid()
{
    Values values;
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column)
            values.insert(values.end(), {100.0 * column, 100.0 * row, 0.0});
    }
    std::swap_ranges(values.begin() + 6, values.begin() + 9, values.end() - 3);
    return values;
}

void searchOfSymmetricPoints(benchmark::State &state, Values (*shape)(), double sigmaMm)
{
    for (auto _ : state) {
        const Milliseconds search = medianSearch([shape, sigmaMm](PointSets &sets) {
            return Sample{shape(), sets.shuffled(sets.moved(shape(), sigmaMm))};
        });
        state.SetIterationTime(0.001 * search.count());
        BenchmarkLimits::expectAtMost(state, search, Milliseconds(100.0));
    }
}

#define SYMMETRIC(name, shape, sigmaMm)                                                                      \
    BENCHMARK_CAPTURE(searchOfSymmetricPoints, name, shape, sigmaMm)                                         \
        ->Iterations(1)                                                                                      \
        ->UseManualTime()                                                                                    \
        ->Unit(benchmark::kMillisecond)
SYMMETRIC(cube, cube, 0.0);
SYMMETRIC(cube_noisy, cube, noiseMm);
SYMMETRIC(circle_of_12, circle, 0.0);
SYMMETRIC(circle_of_12_noisy, circle, noiseMm);
SYMMETRIC(grid_of_25, grid<5>, 0.0);
SYMMETRIC(grid_of_25_noisy, grid<5>, noiseMm);
SYMMETRIC(grid_of_49, grid<7>, 0.0);
SYMMETRIC(grid_of_49_noisy, grid<7>, noiseMm);

} // namespace
