#include "window/LiveCpuPath.h"

#include <utility>

#include "CpuPath.h"
#include "support/ToolError.h"

LiveCpuPath::LiveCpuPath(VideoFile file, const Options& options, RendererSettings settings,
                         MaskSource nextMask)
    : reader_(std::move(file)),
      first_(reader_.First()),
      converter_(SizeOr(options.size, first_), options.rgb ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA),
      renderer_(ForPixels(std::move(settings), options, first_)),
      nextMask_(std::move(nextMask)) {}

bool LiveCpuPath::Next() {
    const AVFrame* frame = count_ == 0 ? &first_ : reader_.Next();
    if (frame == nullptr) {
        return false;
    }
    av_frame_unref(taken_.get());
    if (av_frame_ref(taken_.get(), frame) < 0) {
        throw ToolError(File().Path() + ": out of memory");
    }
    seconds_ = SecondsOf(File(), TimeOf(*frame), count_++);
    if (uint8_t* mask = nextMask_()) {
        mask_ = mask;
    }
    handedOver_ = false;
    return true;
}

void LiveCpuPath::Draw(const View& view) {
    if (!handedOver_) {
        renderer_.HandOver(converter_.Convert(*taken_), std::exchange(mask_, nullptr));
        handedOver_ = true;
    }
    renderer_.SetView(view);
    renderer_.Draw(nullptr, nullptr);
}
