#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "Contest.h"
#include "Jvm.h"
#include "LeastPath.h"
#include "LibraryPath.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr int kPicturesPerTurn = 25;
constexpr size_t kUnits = 100;
constexpr int kRounds = 24;

using Pixels = std::vector<unsigned char>;

double MeanDifference(const Pixels& one, const Pixels& other) {
    double sum = 0;
    for (size_t i = 0; i < one.size(); ++i) {
        sum += std::abs(one[i] - other[i]);
    }
    return sum / static_cast<double>(one.size());
}

/// Compares the library with libavcodec alone and with the least code that shows the same pictures.
class DecodeContest {
public:
    explicit DecodeContest(const Clip& clip) : clip_(clip) {}

    std::vector<Interleaved::Work> works() {
        return {[this] { ours_.play(kPicturesPerTurn); },
                [this] { guarded_.play(kPicturesPerTurn); },
                [this] { bare_.play(kPicturesPerTurn); },
                [this] { lean_.play(kPicturesPerTurn); },
                [this] { prepared_.prepare(kPicturesPerTurn); },
                [this] { decodeOnly(); }};
    }

    /// Differences come from rounding, and from the blue that libyuv's own constants cut.
    bool picturesAreAlike() const {
        constexpr double kTolerance = 2;
        const Pixels picture = read(ours_.target());
        return MeanDifference(picture, read(guarded_.target())) < kTolerance &&
               MeanDifference(picture, read(bare_.target())) < kTolerance &&
               MeanDifference(picture, read(lean_.target())) < kTolerance;
    }

private:
    Pixels read(GLuint texture) const { return ReadTexture(texture, clip_.width, clip_.height); }

    void decodeOnly() {
        for (int i = 0; i < kPicturesPerTurn; ++i) {
            decoder_.next();
        }
    }

    OffscreenContext context_;
    const Clip& clip_;
    LibraryPath ours_{clip_, Jvm(), WayIn::kSevenFunctions};
    LibraryPath guarded_{clip_, Jvm(), WayIn::kGuarded};
    LeastPath bare_{clip_, ShaderKind::kEquivalent};
    LeastPath lean_{clip_, ShaderKind::kLean};
    LeastPath prepared_{clip_, ShaderKind::kLean};
    ClipDecoder decoder_{clip_};
};

enum : size_t { kOurs, kGuarded, kBare, kLean, kPrepared, kDecoding };

void Report(benchmark::State& state, const Interleaved& times) {
    const auto perPicture = [&](size_t work) {
        return times.medianMilliseconds(work) / kPicturesPerTurn;
    };
    state.counters["ours ms"] = perPicture(kOurs);
    state.counters["guarded ms"] = perPicture(kGuarded);
    state.counters["bare ms"] = perPicture(kBare);
    state.counters["lean ms"] = perPicture(kLean);
    state.counters["decoding ms"] = perPicture(kDecoding);
    state.counters["ours/bare"] = times.medianRatio(kOurs, kBare);
    state.counters["ours/lean"] = times.medianRatio(kOurs, kLean);
    state.counters["ours/bare CPU"] = times.medianProcessorRatio(kOurs, kBare);
    state.counters["ours/guarded"] = times.medianRatio(kOurs, kGuarded);
    state.counters["ours/guarded CPU"] = times.medianProcessorRatio(kOurs, kGuarded);
}

/// Processor time. What follows the conversion (upload, draw, waking threads) is the rest.
void ReportPhases(benchmark::State& state, const Interleaved& times) {
    const auto perPicture = [&](size_t work) {
        return times.medianProcessorMilliseconds(work) / kPicturesPerTurn;
    };
    const double prepared = perPicture(kPrepared);
    state.counters["decoding CPU ms"] = perPicture(kDecoding);
    state.counters["conversion CPU ms"] = prepared - perPicture(kDecoding);
    state.counters["ours' rest CPU ms"] = perPicture(kOurs) - prepared;
    state.counters["guarded rest CPU ms"] = perPicture(kGuarded) - prepared;
}

void Contend(benchmark::State& state, const Clip& clip) {
    DecodeContest contest(clip);
    const Interleaved times = RunContest(state, contest.works());
    Report(state, times);
    ReportPhases(state, times);
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
    state.SetLabel(std::to_string(clip.width) + "x" + std::to_string(clip.height) + ", real");
    Contend(state, clip);
}

void GeneratedClip(benchmark::State& state) {
    const Clip clip =
        GenerateClip(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), kUnits);
    state.SetLabel(std::to_string(clip.width) + "x" + std::to_string(clip.height) + ", generated");
    Contend(state, clip);
}

void Configure(benchmark::internal::Benchmark* decoding) {
    decoding->Iterations(kRounds)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(RealClip)->Apply(Configure);
BENCHMARK(GeneratedClip)
    ->ArgNames({"width", "height"})
    ->Args({1280, 720})
    ->Args({1920, 1080})
    ->Apply(Configure);

}  // namespace
