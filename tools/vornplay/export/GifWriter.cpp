#include "GifWriter.h"

#include <algorithm>

#include "support/ToolError.h"

namespace {

constexpr char kPalettes[] =
    "split[pixels][colors];[colors]palettegen=stats_mode=single[palette];"
    "[pixels][palette]paletteuse=new=1:dither=bayer:bayer_scale=4:alpha_threshold=128";

VideoCoding Coding() {
    return {AV_CODEC_ID_GIF, nullptr, AV_PIX_FMT_PAL8, {}};
}

constexpr AVRational kUnit = {1, 100};

/// \return the path
const std::string& CheckRate(const OutputSettings& settings) {
    if (av_compare_ts(settings.clock.frame, settings.clock.tick, 1, kUnit) < 0) {
        throw ToolError(settings.path + ": a gif shows at most 100 frames a second");
    }
    return settings.path;
}

FrameClock GifClock(FrameClock clock) {
    clock.frame = av_rescale_q(clock.frame, clock.tick, kUnit);
    clock.tick = kUnit;
    return clock;
}

}  // namespace

GifWriter::GifWriter(const OutputSettings& settings)
    : muxer_(CheckRate(settings), "gif", settings.existing),
      video_(muxer_, Coding(), settings.size, settings.input.FrameRate(), GifClock(settings.clock),
             ColorTags()),
      clock_(settings.clock) {
    muxer_.Begin({{"loop", "0"}});
}

void GifWriter::Fill(const Image& frame) {
    frame_->format = AV_PIX_FMT_RGBA;
    frame_->width = frame.size.width;
    frame_->height = frame.size.height;
    muxer_.Check(av_frame_get_buffer(frame_.get(), 0));
    const size_t rowBytes = static_cast<size_t>(frame.size.width) * Image::kChannels;
    for (int y = 0; y < frame.size.height; ++y) {
        std::copy_n(frame.At(0, y), rowBytes,
                    frame_->data[0] + static_cast<ptrdiff_t>(y) * frame_->linesize[0]);
    }
}

/// The nearest time of the format after that of the frame before.
int64_t GifWriter::Place(int64_t time) {
    const int64_t nearest = av_rescale_q(time, clock_.tick, kUnit);
    last_ = std::max(nearest, last_ + 1);
    moved_ += av_compare_ts(last_, kUnit, time, clock_.tick) != 0 ? 1 : 0;
    return last_;
}

std::string GifWriter::Remark() const {
    return moved_ == 0 ? ""
                       : "the times of " + std::to_string(moved_) +
                             " frames are rounded to hundredths of a second";
}

void GifWriter::Write(Image& frame, int64_t time) {
    Fill(frame);
    frame_->pts = Place(time);
    if (!palettes_.has_value()) {
        palettes_.emplace(kPalettes, *frame_, kUnit);
    }
    palettes_->Send(frame_.get());
    av_frame_unref(frame_.get());
    Drain();
}

/// Writes the pictures that have got their palettes.
void GifWriter::Drain() {
    while (AVFrame* picture = palettes_->Receive()) {
        video_.Write(*picture, picture->pts);
    }
}

void GifWriter::Finish(bool /*cutShort*/) {
    palettes_->Send(nullptr);
    Drain();
    video_.Finish();
    muxer_.Finish();
}
