// How long the player takes from the start of its process to the first picture in its window,
// beside the least program that shows it. Both say what the time goes into.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "Median.h"
#include "Process.h"

namespace {

constexpr int kRounds = 15;

using Command = std::vector<std::string>;

/// The starts of one program.
class Starts {
public:
    explicit Starts(Command command) : command_(std::move(command)) {}

    void run() {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        Process process(command_, STDERR_FILENO);
        const std::string line = process.waitForLine("first picture after");
        milliseconds_.push_back(
            std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        notePhases(line.substr(line.find("ms: ") + 4));
    }

    void report(benchmark::State& state, const std::string& name) const {
        state.counters[name + " ms"] = Median(milliseconds_);
        const std::string prefix = name + ": ";
        for (const auto& [phase, times] : phases_) {
            state.counters[prefix + phase] = Median(times);
        }
    }

    const std::vector<double>& milliseconds() const { return milliseconds_; }

private:
    /// \param text such as "window 82, picture 34"
    void notePhases(const std::string& text) {
        std::istringstream phases(text);
        for (std::string phase; std::getline(phases, phase, ',');) {
            const size_t number = phase.rfind(' ');
            const size_t first = phase.find_first_not_of(' ');
            phases_[phase.substr(first, number - first)].push_back(std::stod(phase.substr(number)));
        }
    }

    Command command_;
    std::vector<double> milliseconds_;
    std::map<std::string, std::vector<double>> phases_;
};

void Contend(benchmark::State& state, const std::string& clip) {
    Process screen(
        {"Xvfb", "-displayfd", "1", "-screen", "0", "2400x1400x24", "-nolisten", "tcp", "-noreset"},
        STDOUT_FILENO);
    const std::string number = screen.waitForLine("\n");
    setenv("DISPLAY", (":" + number.substr(0, number.size() - 1)).c_str(), 1);
    Starts ours({VORNPLAY, clip, "--verbose"});
    Starts bare({BARE_START, clip});
    Starts withJvm({BARE_START, clip, "JVM"});
    for ([[maybe_unused]] auto round : state) {
        ours.run();
        bare.run();
        withJvm.run();
    }
    ours.report(state, "ours");
    bare.report(state, "bare");
    withJvm.report(state, "bare+JVM");
    state.counters["ours/bare"] = MedianRatio(ours.milliseconds(), bare.milliseconds());
    state.counters["ours/bare+JVM"] = MedianRatio(ours.milliseconds(), withJvm.milliseconds());
}

void RealClip(benchmark::State& state) {
    const std::string clip = FOOTAGE "/box.mp4";
    if (!std::filesystem::exists(clip)) {
        state.SkipWithError("scripts/footage fetches the clip");
        return;
    }
    state.SetLabel("640x480, real");
    Contend(state, clip);
}

void GeneratedClip(benchmark::State& state) {
    const std::string width = std::to_string(state.range(0));
    const std::string height = std::to_string(state.range(1));
    const std::string stream =
        std::filesystem::temp_directory_path() / ("startbench-" + height + ".h264");
    const std::string clip = stream + ".mp4";
    RunProcess({MAKE_CLIP, width, height, "25", stream});
    RunProcess({"ffmpeg", "-v", "fatal", "-y", "-i", stream, "-c", "copy", clip});
    state.SetLabel(width + "x" + height);
    Contend(state, clip);
    std::filesystem::remove(clip);
    std::filesystem::remove(stream);
}

void Configure(benchmark::internal::Benchmark* start) {
    start->Iterations(kRounds)->Unit(benchmark::kMillisecond);
}

BENCHMARK(RealClip)->Apply(Configure);
BENCHMARK(GeneratedClip)
    ->ArgNames({"width", "height"})
    ->Args({640, 480})
    ->Args({1920, 1080})
    ->Apply(Configure);

}  // namespace
