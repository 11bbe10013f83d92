// From a process with GL and a JVM to the first drawn picture of a clip: context, decoder,
// renderer, units.

#include <benchmark/benchmark.h>

#include "Contest.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "Phases.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr size_t kUnits = 4;
constexpr int kRounds = 18;

void FirstClipPicture(benchmark::State& state) {
    enum : size_t { kSeven, kGuarded, kBare };
    const Clip clip =
        GenerateClip(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), kUnits);
    JavaVM* machine = Jvm();
    Phases phases(3);
    const auto show = [&](WayIn wayIn) {
        phases.start();
        const OffscreenContext context;
        phases.lap();
        LibraryPath path(clip, machine, wayIn);
        phases.lap();
        path.play(1);
        phases.lap();
    };
    const auto showBare = [&clip] {
        const OffscreenContext context;
        LeastPath(clip, ShaderKind::kEquivalent).play(1);
    };
    const Interleaved times = RunContest(
        state, {[&] { show(WayIn::kSevenFunctions); }, [&] { show(WayIn::kGuarded); }, showBare});
    state.SetLabel(SizeOf(clip) + ", generated");
    state.counters["context ms"] = phases.medianMilliseconds(0);
    state.counters["creation ms"] = phases.medianMilliseconds(1);
    state.counters["picture ms"] = phases.medianMilliseconds(2);
    state.counters["bare ms"] = times.medianMilliseconds(kBare);
    state.counters["seven/bare"] = times.medianRatio(kSeven, kBare);
    state.counters["seven/bare CPU"] = times.medianProcessorRatio(kSeven, kBare);
    state.counters["guarded/bare"] = times.medianRatio(kGuarded, kBare);
    state.counters["guarded/bare CPU"] = times.medianProcessorRatio(kGuarded, kBare);
}

BENCHMARK(FirstClipPicture)
    ->ArgNames({"width", "height"})
    ->Args({640, 480})
    ->Args({1920, 1080})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
