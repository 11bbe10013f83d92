// A raw frame on its way from memory to a texture, enlarged: the guarded renderer, bare GL,
// libplacebo and GStreamer.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "Contest.h"
#include "GStreamerPeer.h"
#include "LibplaceboPeer.h"
#include "TexturePixels.h"
#include "offscreen/OffscreenContext.h"
#include "render/DirectRenderer.h"
#include "render/GuardedFrames.h"

namespace {

using Bytes = std::vector<unsigned char>;

constexpr int kWarmUpRounds = 5;
constexpr int kRounds = 24;
constexpr float kInitialZoom = 2;

/// A slope, so that pictures of other filters are alike.
Bytes MakePixels(const FrameCase& frame) {
    Bytes pixels(frame.bytes());
    const size_t row = frame.bytes() / static_cast<size_t>(frame.height);
    for (size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = static_cast<unsigned char>(100 * (i % row) / row + 100 * i / pixels.size());
    }
    return pixels;
}

class PeerContest {
public:
    PeerContest(const FrameCase& frame, bool enlarged)
        : frame_(frame),
          zoom_(enlarged ? kInitialZoom : VE_ZOOM_FIT),
          scale_(enlarged ? kInitialScale : 1) {}

    std::vector<Interleaved::Work> works() {
        const void* pixels = pixels_.data();
        return {finished([this, pixels] { ours_.draw(pixels, zoom_); }),
                finished([this, pixels] { direct_.draw(pixels); }),
                finished([this, pixels] { linear_.draw(pixels); }),
                [this, pixels] { libplacebo_->draw(pixels); },
                [this, pixels] { gstreamer_->draw(pixels); }};
    }

    bool picturesAreAlike() const {
        const Bytes picture = ReadTexture(ours_.target(), frame_.width, frame_.height);
        return alike(picture, ReadTexture(direct_.target(), frame_.width, frame_.height)) &&
               alike(picture, ReadTexture(linear_.target(), frame_.width, frame_.height)) &&
               alike(picture, libplacebo_->picture()) && alike(picture, gstreamer_->picture());
    }

private:
    template <class Draw>
    static Interleaved::Work finished(Draw draw) {
        return [draw] {
            draw();
            glFinish();
        };
    }

    /// Without alpha, which RGB frames lack.
    static bool alike(const Bytes& a, const Bytes& b) {
        constexpr int kTolerance = 3;
        bool all = a.size() == b.size();
        for (size_t i = 0; all && i < a.size(); ++i) {
            all = i % 4 == 3 || std::abs(a[i] - b[i]) <= kTolerance;
        }
        return all;
    }

    OffscreenContext context_;
    FrameCase frame_;
    float zoom_;
    float scale_;
    Bytes pixels_ = MakePixels(frame_);
    GuardedFrames ours_{frame_, DrawingOnce()};
    DirectRenderer direct_{frame_, scale_};
    DirectRenderer linear_{frame_, scale_, GL_LINEAR};
    std::unique_ptr<Peer> libplacebo_ = MakeLibplaceboPeer(frame_, scale_);
    std::unique_ptr<Peer> gstreamer_ = MakeGStreamerPeer(frame_, scale_);
};

void Peers(benchmark::State& state) {
    enum : size_t { kOurs, kDirect, kLinear, kLibplacebo, kGStreamer };
    const FrameCase frame = {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                             state.range(2) == 4, false, 0};
    const bool enlarged = state.range(3) != 0;
    PeerContest contest(frame, enlarged);
    const Interleaved times = RunContest(state, contest.works(), kWarmUpRounds);
    state.SetLabel(LabelOf(frame) + (enlarged ? ", enlarged" : ""));
    state.counters["ours ms"] = times.medianMilliseconds(kOurs);
    state.counters["direct ms"] = times.medianMilliseconds(kDirect);
    state.counters["linear ms"] = times.medianMilliseconds(kLinear);
    state.counters["libplacebo ms"] = times.medianMilliseconds(kLibplacebo);
    state.counters["GStreamer ms"] = times.medianMilliseconds(kGStreamer);
    state.counters["libplacebo/ours"] = times.medianRatio(kLibplacebo, kOurs);
    state.counters["libplacebo/ours CPU"] = times.medianProcessorRatio(kLibplacebo, kOurs);
    state.counters["GStreamer/ours"] = times.medianRatio(kGStreamer, kOurs);
    state.counters["GStreamer/ours CPU"] = times.medianProcessorRatio(kGStreamer, kOurs);
    state.counters["GStreamer/direct CPU"] = times.medianProcessorRatio(kGStreamer, kDirect);
    state.counters["GStreamer/linear CPU"] = times.medianProcessorRatio(kGStreamer, kLinear);
    if (!contest.picturesAreAlike()) {
        throw std::runtime_error("the renderers do not draw the same picture");
    }
}

BENCHMARK(Peers)
    ->ArgNames({"width", "height", "bytes", "enlarged"})
    ->ArgsProduct({{640}, {480}, {3, 4}, {0, 1}})
    ->ArgsProduct({{1280}, {720}, {3, 4}, {0, 1}})
    ->ArgsProduct({{1920}, {1080}, {3, 4}, {0, 1}})
    ->Iterations(kRounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
