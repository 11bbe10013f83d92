#include "PixelSource.h"

#include <utility>

#include "support/ToolError.h"

namespace {

RendererSettings Sized(RendererSettings settings, const AVFrame& first) {
    settings.size = SizeOr(settings.size, first);
    return settings;
}

AVPixelFormat FormatOf(const RendererSettings& settings) {
    return settings.source == VE_MODE_RGB ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA;
}

}  // namespace

PixelSource::PixelSource(VideoFile file, RendererSettings settings, MaskSource nextMask)
    : FrameSource(std::move(nextMask)),
      reader_(std::move(file)),
      first_(&reader_.First()),
      renderer_(Sized(settings, *first_)),
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
    NoteTime(TimeOf(*frame));
    AskForMask();
    handedOver_ = false;
    return true;
}

void PixelSource::Draw(const Shot& shot) {
    if (!std::exchange(handedOver_, true)) {
        renderer_.HandOver(converter_.Convert(*taken_), TakeMask());
    }
    renderer_.SetShot(shot);
    renderer_.Draw();
}
