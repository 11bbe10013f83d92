#include "PixelSource.h"

#include <utility>

#include "support/ToolError.h"

namespace {

RendererSettings For(const VideoFile& file, const AVFrame& first, RendererSettings settings) {
    settings.input = file.Path();
    settings.size = SizeOr(settings.size, first);
    return settings;
}

AVPixelFormat FormatOf(const RendererSettings& settings) {
    return settings.source == VE_SOURCE_RGB ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA;
}

}  // namespace

PixelSource::PixelSource(VideoFile file, const RendererSettings& settings, MaskSource nextMask)
    : FrameSource(std::move(nextMask)),
      reader_(std::move(file)),
      first_(&reader_.First()),
      renderer_(For(reader_.File(), *first_, settings)),
      converter_(renderer_.FrameSize(), FormatOf(settings)) {}

bool PixelSource::Next() {
    const AVFrame* frame = first_ != nullptr ? std::exchange(first_, nullptr) : reader_.Next();
    if (frame == nullptr) {
        return false;
    }
    av_frame_unref(taken_.get());
    if (av_frame_ref(taken_.get(), frame) < 0) {
        throw ToolError(File().Path() + ": out of memory");
    }
    NoteTime(frame->pts);
    AskForMask();
    handedOver_ = false;
    return true;
}

void PixelSource::Draw(const Shot& shot) {
    const uint8_t* frame = std::exchange(handedOver_, true) ? nullptr : converter_.Convert(*taken_);
    renderer_.Draw(shot, frame, TakeMask());
}
