// How long a unit takes to its drawn picture, when units come at the pace of live video.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "AheadPath.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "offscreen/OffscreenContext.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t kUnits = 50;
constexpr std::chrono::milliseconds kInterval(40);

struct Latency {
    double pictures;  ///< Units that were given after the picture's own.
    double milliseconds;
};

Latency Median(std::vector<Latency> latencies) {
    const auto middle = latencies.begin() + static_cast<std::ptrdiff_t>(latencies.size() / 2);
    std::nth_element(
        latencies.begin(), middle, latencies.end(),
        [](const Latency& a, const Latency& b) { return a.milliseconds < b.milliseconds; });
    return *middle;
}

Latency Measure(ClipPath& path) {
    constexpr int kPauseUs = 1000;
    std::vector<Clock::time_point> given;
    std::vector<Latency> shown;
    const Clock::time_point start = Clock::now();
    while (given.size() < kUnits) {
        if (Clock::now() >= start + kInterval * given.size() && path.wantsUnit()) {
            given.push_back(Clock::now());
            path.give();
        }
        if (path.show(kPauseUs)) {
            const std::chrono::duration<double, std::milli> took =
                Clock::now() - given.at(shown.size());
            shown.push_back({static_cast<double>(given.size() - shown.size() - 1), took.count()});
        } else {
            std::this_thread::sleep_for(std::chrono::microseconds(kPauseUs / 4));
        }
    }
    Latency latency = Median(std::move(shown));
    latency.pictures += path.delay();
    latency.milliseconds += path.delay() * static_cast<double>(kInterval.count());
    return latency;
}

void LatencyOfClip(benchmark::State& state) {
    const OffscreenContext context;
    const Clip clip =
        GenerateClip(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), kUnits);
    LibraryPath ours(clip, Jvm(), WayIn::kSevenFunctions);
    LibraryPath guarded(clip, Jvm(), WayIn::kGuarded);
    LeastPath bare(clip, ShaderKind::kEquivalent);
    AheadPath ahead(clip, ShaderKind::kEquivalent);
    const auto report = [&state](const std::string& name, ClipPath& path) {
        const Latency latency = Measure(path);
        state.counters[name + " pictures"] = latency.pictures;
        state.counters[name + " ms"] = latency.milliseconds;
    };
    for ([[maybe_unused]] auto round : state) {
        report("ours", ours);
        report("guarded", guarded);
        report("bare", bare);
        report("ahead", ahead);
    }
    state.SetLabel(SizeOf(clip));
}

BENCHMARK(LatencyOfClip)
    ->ArgNames({"width", "height"})
    ->Args({640, 480})
    ->Args({1280, 720})
    ->Args({1920, 1080})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
