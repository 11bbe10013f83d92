// The largest resident memory of processes that show a clip. The system counts that of the process
// that starts them, too, so this is a program of its own, which stays small.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Median.h"
#include "Process.h"

namespace {

constexpr size_t kUnits = 25;
constexpr int kRounds = 3;
constexpr double kMegabyte = 1e6;

void MemoryOfClip(benchmark::State& state) {
    const std::string width = std::to_string(state.range(0));
    const std::string height = std::to_string(state.range(1));
    const std::string path =
        std::filesystem::temp_directory_path() / ("memorybench-" + height + ".h264");
    RunProcess({MAKE_CLIP, width, height, std::to_string(kUnits), path});
    const auto megabytes = [&](const std::string& name) {
        std::vector<double> peaks(kRounds);
        for (double& peak : peaks) {
            peak = RunProcess({PLAY_CLIP, name, path, std::to_string(kUnits)}) / kMegabyte;
        }
        return Median(peaks);
    };
    for ([[maybe_unused]] auto round : state) {
        for (const char* name : {"seven", "guarded", "bare", "bare+JVM", "ahead"}) {
            state.counters[std::string(name) + " MB"] = megabytes(name);
        }
    }
    const double limit = state.counters["bare+JVM MB"];
    state.counters["seven/bare+JVM"] = state.counters["seven MB"] / limit;
    state.counters["guarded/bare+JVM"] = state.counters["guarded MB"] / limit;
    state.SetLabel(width + "x" + height);
    std::filesystem::remove(path);
}

BENCHMARK(MemoryOfClip)
    ->ArgNames({"width", "height"})
    ->Args({640, 480})
    ->Args({1280, 720})
    ->Args({1920, 1080})
    ->Args({3840, 2160})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
