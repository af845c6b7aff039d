#include "BenchmarkLimits.h"
#include "VelmarParser.h"

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int bodies = 30;
constexpr int sampleCount = 51;
constexpr int callsPerSample = 50;
/// How many times faster than sscanf the parser must be.
constexpr double requiredRatio = 3.0;

/// A record as the controller writes it: locations with three decimals, rotations with six.
std::string recordOfBodies()
{
    std::minstd_rand random(7);
    std::uniform_real_distribution<double> location(-4000.0, 4000.0), element(-1.0, 1.0);
    std::string line = "6d " + std::to_string(bodies);
    char number[64];
    for (int id = 0; id < bodies; ++id) {
        std::snprintf(number, sizeof number, " [%d 1.000]", id);
        line += number;
        for (int i = 0; i < 12; ++i) {
            const char *frame = i == 0 || i == 3 ? "[" : " ";
            std::snprintf(number, sizeof number, i < 3 ? "%s%.3f" : "%s%.6f", frame,
                          i < 3 ? location(random) : element(random));
            line += number;
            if (i == 2 || i == 11)
                line += ']';
        }
    }
    return line;
}

int parseOnce(VelmarParser &parser, std::string &line)
{
    char *cursor = line.data();
    return parser.parseLine(&cursor);
}

int scanOnce(std::vector<BodyRecord> &records, const std::string &line)
{
    const char *position = line.c_str();
    int count = 0, used = 0, read = 0;
    if (std::sscanf(position, "6d %d%n", &count, &used) != 1)
        return 0;
    for (int i = 0; i < count; ++i) {
        position += used;
        BodyRecord &body = records[static_cast<std::size_t>(i)];
        double *p = body.location.data(), *r = body.rotation.data();
        read = std::sscanf(position, " [%d %lf][%lf %lf %lf][%lf %lf %lf %lf %lf %lf %lf %lf %lf]%n",
                           &body.id, &body.quality, p, p + 1, p + 2, r, r + 1, r + 2, r + 3, r + 4, r + 5,
                           r + 6, r + 7, r + 8, &used);
        if (read != 14)
            return 0;
    }
    return 1;
}

template <typename Work>
Milliseconds timeOf(Work work)
{
    const Clock::time_point start = Clock::now();
    for (int call = 0; call < callsPerSample; ++call)
        benchmark::DoNotOptimize(work());
    return Milliseconds(Clock::now() - start) / callsPerSample;
}

Milliseconds medianOf(std::vector<Milliseconds> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

bool readTheSame(const VelmarParser &parser, const std::vector<BodyRecord> &records)
{
    for (int id = 0; id < bodies; ++id) {
        const BodyRecord &scanned = records[static_cast<std::size_t>(id)];
        if (parser.body(id)->location != scanned.location || parser.body(id)->rotation != scanned.rotation)
            return false;
    }
    return true;
}

/// Both read the same line in turn, in the C locale, which sscanf needs.
void recordOfThirtyBodies(benchmark::State &state)
{
    std::setlocale(LC_NUMERIC, "C");
    std::string line = recordOfBodies();
    VelmarParser parser;
    std::vector<BodyRecord> records(bodies);
    if (parseOnce(parser, line) != 1 || scanOnce(records, line) != 1 || !readTheSame(parser, records)) {
        state.SkipWithError("the line was not read");
        return;
    }
    std::vector<Milliseconds> parsed, scanned;
    for (auto _ : state) {
        for (int sample = 0; sample < sampleCount; ++sample) {
            parsed.push_back(timeOf([&] { return parseOnce(parser, line); }));
            scanned.push_back(timeOf([&] { return scanOnce(records, line); }));
        }
    }
    const Milliseconds parserTime = medianOf(parsed), sscanfTime = medianOf(scanned);
    state.counters["parser_us"] = parserTime.count() * 1000.0;
    state.counters["sscanf_us"] = sscanfTime.count() * 1000.0;
    state.counters["ratio"] = sscanfTime / parserTime;
    BenchmarkLimits::expectAtMost(state, parserTime, sscanfTime / requiredRatio);
}

BENCHMARK(recordOfThirtyBodies)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
