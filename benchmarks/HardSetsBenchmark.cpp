#include "AssignmentSearch.h"
#include "BenchmarkLimits.h"
#include "BenchmarkTimes.h"
#include "PointSets.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <numeric>
#include <vector>

using namespace std::chrono_literals;

namespace
{

using BenchmarkTimes::medianOf;
using BenchmarkTimes::Milliseconds;
using BenchmarkTimes::timeOf;
using Values = std::vector<double>;

constexpr unsigned seedCount = 50;
constexpr double spreadMm = 1000.0;
constexpr double goodNoiseMm = 0.3;
constexpr int fitSeries = 51;
constexpr int fitsPerSeries = 20;

/// The tree alone may never end; what it has not found by then counts as not found.
constexpr Milliseconds treePatience = 50ms;

struct Sample {
    Values references;
    Values measured;
};

Sample blurred(PointSets &sets, int count, double noiseMm)
{
    const Values references = sets.box(count, spreadMm);
    return {references, sets.moved(references, noiseMm)};
}

template <int noiseMm>
Sample noisy(PointSets &sets, int count)
{
    return blurred(sets, count, noiseMm);
}

Sample oneWrong(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    for (std::size_t axis = 0; axis < 3; ++axis)
        sample.measured[axis] += sets.uniform(-400, 400);
    return sample;
}

Sample measuredTwice(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    for (std::size_t axis = 0; axis < 3; ++axis)
        sample.measured[axis] = sample.measured[axis + 3] + sets.noise(goodNoiseMm);
    return sample;
}

Sample halfMoved(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    for (std::size_t i = 0; i < sample.measured.size() / 2; i += 3) {
        sample.measured[i] += 150.0;
        sample.measured[i + 1] += 90.0;
    }
    return sample;
}

Sample allWrong(PointSets &sets, int count)
{
    return {sets.box(count, spreadMm), sets.box(count, spreadMm)};
}

Sample mirrored(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    for (std::size_t i = 0; i < sample.measured.size(); i += 3)
        sample.measured[i] = -sample.measured[i];
    return sample;
}

Sample inches(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    for (double &value : sample.references)
        value /= 25.4;
    return sample;
}

Sample halfFilled(PointSets &sets, int count)
{
    Sample sample = blurred(sets, count, goodNoiseMm);
    std::fill(sample.references.begin() + 3 * (count / 2), sample.references.end(), 0.0);
    return sample;
}

/// One fit of as many points, in the order in which they stand.
Milliseconds fitTime(const Sample &sample)
{
    OrderFit fit(asPoints(sample.references), asPoints(sample.measured));
    PointOrder order(fit.references().size());
    std::iota(order.begin(), order.end(), 0);
    std::vector<Milliseconds> times;
    times.reserve(fitSeries);
    for (int series = 0; series < fitSeries; ++series) {
        times.push_back(timeOf([&]() {
                            for (int call = 0; call < fitsPerSeries; ++call)
                                benchmark::DoNotOptimize(fit.fit(order).rmsMm);
                        }) /
                        fitsPerSeries);
    }
    return medianOf(times);
}

struct Times {
    std::vector<Milliseconds> searches;
    std::vector<Milliseconds> trees;
    int treesEnded = 0;
    Milliseconds fit{};
};

void searchBothWays(Times &times, const Sample &sample, PointSets &sets)
{
    const MatchingPoints references = asPoints(sample.references);
    const MatchingPoints measured = asPoints(sets.shuffled(sample.measured));
    times.searches.push_back(timeOf([&]() {
        AssignmentSearch search(references, measured);
        benchmark::DoNotOptimize(search.run({}).bestMm);
    }));
    times.trees.push_back(timeOf([&]() {
        const auto end = std::chrono::steady_clock::now() + treePatience;
        AssignmentSearch search(references, measured);
        const AssignmentSearch::Result result =
            search.runTree([end]() { return std::chrono::steady_clock::now() < end; });
        times.treesEnded += result.outcome == AssignmentSearch::Outcome::Cancelled ? 0 : 1;
    }));
}

/// The worst of all seeds has to stay within the limit.
void searchOfHardPoints(benchmark::State &state, Sample (*make)(PointSets &sets, int count))
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        Times times;
        for (unsigned seed = 0; seed < seedCount; ++seed) {
            PointSets sets(1000 + seed);
            const Sample sample = make(sets, count);
            searchBothWays(times, sample, sets);
            if (seed == 0)
                times.fit = fitTime(sample);
        }
        const Milliseconds median = medianOf(times.searches);
        const Milliseconds worst = *std::max_element(times.searches.begin(), times.searches.end());
        state.SetIterationTime(0.001 * worst.count());
        state.counters["median_ms"] = median.count();
        state.counters["median_fits"] = median / times.fit;
        state.counters["worst_fits"] = worst / times.fit;
        state.counters["tree_ms"] = medianOf(times.trees).count();
        state.counters["trees_ended"] = times.treesEnded;
        BenchmarkLimits::expectAtMost(state, worst, Milliseconds(static_cast<double>(state.range(1))));
    }
}

#define HARD(name, make, points, limitMs)                                                                    \
    BENCHMARK_CAPTURE(searchOfHardPoints, name, make)                                                        \
        ->ArgNames({"points", "limit_ms"})                                                                   \
        ->Args({points, limitMs})                                                                            \
        ->Iterations(1)                                                                                      \
        ->UseManualTime()                                                                                    \
        ->Unit(benchmark::kMillisecond)
HARD(noise_200, noisy<200>, 10, 5);
HARD(noise_200, noisy<200>, 20, 30);
HARD(noise_200, noisy<200>, 30, 80);
HARD(noise_200, noisy<200>, 50, 300);
HARD(noise_50, noisy<50>, 50, 50);
HARD(one_wrong, oneWrong, 50, 50);
HARD(measured_twice, measuredTwice, 50, 50);
HARD(half_moved, halfMoved, 30, 80);
HARD(all_wrong, allWrong, 30, 80);
HARD(mirrored, mirrored, 30, 80);
HARD(inches, inches, 20, 15);
HARD(half_filled, halfFilled, 20, 300);

} // namespace
