// What an export costs, beside ffmpeg's transcode of the same clip with the same encoder settings
// and as many bare draws. ffmpeg is a tool of the benchmark only.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "Contest.h"
#include "Process.h"

namespace {

constexpr int kRounds = 6;
constexpr double kMegabyte = 1e6;

using Command = std::vector<std::string>;

const std::string kFootage = FOOTAGE "/vtest.avi";

struct Case {
    int width;
    int height;
    int frames;

    std::string Path(const std::string& name) const {
        return std::filesystem::temp_directory_path() /
               ("exportbench-" + std::to_string(height) + "-" + name + ".mp4");
    }
};

Command Ffmpeg(const std::string& input, const Command& options, const std::string& output) {
    Command command = {"ffmpeg", "-v", "error", "-y", "-i", input, "-an", "-c:v", "libx264"};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(output);
    return command;
}

void MakeClip(const Case& size) {
    RunProcess(
        Ffmpeg(kFootage,
               {"-frames:v", std::to_string(size.frames), "-pix_fmt", "yuv420p", "-crf", "20",
                "-vf", "scale=" + std::to_string(size.width) + ":" + std::to_string(size.height)},
               size.Path("clip")));
}

Command Export(const Case& size) {
    return {VORNPLAY, size.Path("clip"), "--quiet", "--overwrite", "--out", size.Path("ours")};
}

/// With the player's settings.
Command Transcode(const Case& size) {
    return Ffmpeg(
        size.Path("clip"),
        {"-preset", "fast", "-crf", "18", "-pix_fmt", "yuv420p", "-movflags", "+faststart"},
        size.Path("ffmpeg"));
}

Command Draws(const Case& size) {
    return {BARE_DRAWS, std::to_string(size.width), std::to_string(size.height),
            std::to_string(size.frames)};
}

void Contend(benchmark::State& state, const Case& size) {
    enum : size_t { kOurs, kLimit };
    double ours = 0;
    double ffmpeg = 0;
    const Interleaved times = RunContest(state,
                                         {[&] { ours = std::max(ours, RunProcess(Export(size))); },
                                          [&] {
                                              ffmpeg =
                                                  std::max(ffmpeg, RunProcess(Transcode(size)));
                                              RunProcess(Draws(size));
                                          }},
                                         0);
    state.counters["ours ms"] = times.medianMilliseconds(kOurs) / size.frames;
    state.counters["limit ms"] = times.medianMilliseconds(kLimit) / size.frames;
    state.counters["ours/limit"] = times.medianRatio(kOurs, kLimit);
    state.counters["ours/limit CPU"] = times.medianProcessorRatio(kOurs, kLimit);
    state.counters["ours MB"] = ours / kMegabyte;
    state.counters["ffmpeg MB"] = ffmpeg / kMegabyte;
}

void ExportOfFootage(benchmark::State& state) {
    if (!std::filesystem::exists(kFootage)) {
        state.SkipWithError("scripts/footage fetches the clip");
        return;
    }
    const Case size = {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                       static_cast<int>(state.range(2))};
    MakeClip(size);
    Contend(state, size);
    for (const char* name : {"clip", "ours", "ffmpeg"}) {
        std::filesystem::remove(size.Path(name));
    }
    state.SetLabel(std::to_string(size.width) + "x" + std::to_string(size.height));
}

BENCHMARK(ExportOfFootage)
    ->ArgNames({"width", "height", "frames"})
    ->Args({1280, 720, 150})
    ->Args({1920, 1080, 80})
    ->Args({3840, 2160, 40})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
