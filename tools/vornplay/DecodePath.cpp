#include "DecodePath.h"

#include <utility>

RendererSettings ForUnits(RendererSettings settings, const Options& options,
                          const VideoFile& file) {
    const AVCodecParameters& codec = file.Codec();
    settings.source = codec.codec_id == AV_CODEC_ID_H264 ? VE_MODE_H264 : VE_MODE_MJPEG;
    settings.size = options.size.width > 0 ? options.size : Size{codec.width, codec.height};
    return settings;
}

PlatformPath::PlatformPath(VideoFile file, const Options& options, RendererSettings settings,
                           MaskSource nextMask)
    : file_(std::move(file)),
      renderer_(ForUnits(std::move(settings), options, file_)),
      feed_(file_, renderer_),
      nextMask_(std::move(nextMask)),
      mask_(nextMask_()) {
    DrawInPassing();
}

void PlatformPath::DrawNew(const View& view) {
    mask_ = nextMask_();
    renderer_.SetView(view);
    renderer_.Draw(nullptr, mask_);
}

DecodePath::DecodePath(VideoFile file, const Options& options, RendererSettings settings,
                       MaskSource nextMask)
    : PlatformPath(std::move(file), options, std::move(settings), std::move(nextMask)) {
    Feed().SetLockStep(true);
}

bool DecodePath::DrawNext(const View& view, bool /*last*/) {
    HostFrames frames;
    while (Feed().AwaitFrame(seen_, frames)) {
        seen_ = frames.delivered;
        if (Feed().Show(frames.unit)) {
            DrawNew(view);
            return true;
        }
        DrawInPassing();  // Makes room for the next.
    }
    return false;
}
