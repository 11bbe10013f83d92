#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "AheadPath.h"
#include "Contest.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr size_t kUnits = 100;
constexpr int kRounds = 11;

using Pixels = std::vector<unsigned char>;

double MeanDifference(const Pixels& one, const Pixels& other) {
    double sum = 0;
    for (size_t i = 0; i < one.size(); ++i) {
        sum += std::abs(one[i] - other[i]);
    }
    return sum / static_cast<double>(one.size());
}

/// As many as take about the same time in each size.
int PicturesPerTurn(const Clip& clip) {
    constexpr int kPixels = 12 * 1280 * 720;
    return std::clamp(kPixels / (clip.width * clip.height), 3, 25);
}

/// Compares the library with libavcodec alone and with the least code that shows the same pictures.
class DecodeContest {
public:
    explicit DecodeContest(const Clip& clip) : clip_(clip), pictures_(PicturesPerTurn(clip)) {}

    std::vector<Interleaved::Work> works() {
        std::vector<Interleaved::Work> works;
        for (ClipPath* path :
             std::initializer_list<ClipPath*>{&ours_, &guarded_, &bare_, &lean_, &ahead_}) {
            works.emplace_back([this, path] { path->play(pictures_); });
        }
        works.emplace_back([this] { converted_.convertOne(pictures_); });
        works.emplace_back([this] { decodeOnly(); });
        return works;
    }

    int picturesPerTurn() const { return pictures_; }

    /// Differences come from rounding, and from the blue that libyuv's own constants cut.
    bool picturesAreAlike() const {
        constexpr double kTolerance = 2;
        const Pixels picture = read(ours_.target());
        return MeanDifference(picture, read(guarded_.target())) < kTolerance &&
               MeanDifference(picture, read(bare_.target())) < kTolerance &&
               MeanDifference(picture, read(lean_.target())) < kTolerance &&
               MeanDifference(picture, read(ahead_.target())) < kTolerance;
    }

private:
    Pixels read(GLuint texture) const { return ReadTexture(texture, clip_.width, clip_.height); }

    void decodeOnly() {
        for (int i = 0; i < pictures_; ++i) {
            decoder_.next();
        }
    }

    OffscreenContext context_;
    const Clip& clip_;
    int pictures_;
    LibraryPath ours_{clip_, Jvm(), WayIn::kSevenFunctions};
    LibraryPath guarded_{clip_, Jvm(), WayIn::kGuarded};
    LeastPath bare_{clip_, ShaderKind::kEquivalent};
    LeastPath lean_{clip_, ShaderKind::kLean};
    LeastPath converted_{clip_, ShaderKind::kLean};
    AheadPath ahead_{clip_, ShaderKind::kEquivalent};
    ClipDecoder decoder_{clip_};
};

void Report(benchmark::State& state, const Interleaved& times, int pictures) {
    enum : size_t { kOurs, kGuarded, kBare, kLean, kAhead, kConversion, kDecoding };
    static constexpr std::array kNames = {"ours",  "guarded",    "bare",    "lean",
                                          "ahead", "conversion", "decoding"};
    for (size_t work = 0; work < kNames.size(); ++work) {
        const std::string name = kNames.at(work);
        state.counters[name + " ms"] = times.medianMilliseconds(work) / pictures;
        state.counters[name + " CPU ms"] = times.medianProcessorMilliseconds(work) / pictures;
    }
    for (const size_t work : {kOurs, kGuarded}) {
        const std::string name = kNames.at(work);
        for (const size_t opponent : {kBare, kLean, kAhead}) {
            const std::string ratio = name + "/" + kNames.at(opponent);
            state.counters[ratio] = times.medianRatio(work, opponent);
            state.counters[ratio + " CPU"] = times.medianProcessorRatio(work, opponent);
        }
    }
    // What follows the conversion: upload, draw, waking threads.
    const double prepared = state.counters["decoding CPU ms"] + state.counters["conversion CPU ms"];
    state.counters["ours rest CPU ms"] = state.counters["ours CPU ms"] - prepared;
    state.counters["guarded rest CPU ms"] = state.counters["guarded CPU ms"] - prepared;
    state.counters["ours/guarded"] = times.medianRatio(kOurs, kGuarded);
    state.counters["ours/guarded CPU"] = times.medianProcessorRatio(kOurs, kGuarded);
}

void Contend(benchmark::State& state, const Clip& clip) {
    DecodeContest contest(clip);
    Report(state, RunContest(state, contest.works()), contest.picturesPerTurn());
    if (!contest.picturesAreAlike()) {
        throw std::runtime_error("the paths do not show the same picture");
    }
}

void RealClip(benchmark::State& state) {
    const std::string path = FOOTAGE "/box.mp4";
    if (!std::filesystem::exists(path)) {
        state.SkipWithError("scripts/footage fetches the clip");
        return;
    }
    const Clip clip = LoadClip(path, kUnits);
    state.SetLabel(SizeOf(clip) + ", real");
    Contend(state, clip);
}

void GeneratedClip(benchmark::State& state) {
    const auto arguments = [&state](size_t i) { return static_cast<int>(state.range(i)); };
    const Clip clip = GenerateClip(arguments(0), arguments(1), kUnits / 4, arguments(2));
    state.SetLabel(SizeOf(clip));
    Contend(state, clip);
}

void Configure(benchmark::internal::Benchmark* decoding) {
    decoding->Iterations(kRounds)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(RealClip)->Apply(Configure);
BENCHMARK(GeneratedClip)
    ->ArgNames({"width", "height", "slices"})
    ->ArgsProduct({{640}, {480}, {1, 4}})
    ->ArgsProduct({{1280}, {720}, {1, 4}})
    ->ArgsProduct({{1920}, {1080}, {1, 4}})
    ->Args({3840, 2160, 1})
    ->Apply(Configure);

}  // namespace
