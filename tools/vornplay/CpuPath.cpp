#include "CpuPath.h"

#include <utility>

RendererSettings ForPixels(RendererSettings settings, const Options& options,
                           const AVFrame& first) {
    settings.source = options.rgb ? VE_MODE_RGB : VE_MODE_RGBA;
    settings.size = SizeOr(options.size, first);
    return settings;
}

CpuPath::CpuPath(VideoFile file, const Options& options, RendererSettings settings,
                 MaskSource nextMask)
    : reader_(std::move(file)),
      first_(reader_.First()),
      converter_(SizeOr(options.size, first_), options.rgb ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA),
      renderer_(ForPixels(std::move(settings), options, first_)),
      nextMask_(std::move(nextMask)) {}

/// Draws the frame handed over before, by handing over the one after it.
bool CpuPath::DrawNext(const View& view, bool last) {
    if (finished_) {
        return false;
    }
    if (!started_) {
        Submit(first_);
        started_ = true;
    }
    renderer_.SetView(view);
    if (const AVFrame* next = last ? nullptr : reader_.Next()) {
        Submit(*next);
    } else {
        renderer_.Draw(nullptr, nullptr);
        finished_ = true;
    }
    return true;
}

void CpuPath::Submit(const AVFrame& frame) {
    renderer_.Draw(converter_.Convert(frame), nextMask_());
}
