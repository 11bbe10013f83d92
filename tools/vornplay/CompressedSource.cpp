#include "CompressedSource.h"

#include <utility>

namespace {

RendererSettings For(const AVCodecParameters& codec, RendererSettings settings) {
    settings.source = codec.codec_id == AV_CODEC_ID_H264 ? VE_MODE_H264 : VE_MODE_MJPEG;
    if (settings.size.width == 0) {
        settings.size = {codec.width, codec.height};
    }
    return settings;
}

}  // namespace

CompressedSource::CompressedSource(VideoFile file, RendererSettings settings, MaskSource nextMask)
    : FrameSource(std::move(nextMask)),
      file_(std::move(file)),
      renderer_(For(file_.Codec(), std::move(settings))),
      feed_(file_, renderer_) {
    feed_.SetStepping(true);
}

bool CompressedSource::Next() {
    do {
        if (feed_.Frames().delivered > 0) {
            feed_.Step();
        }
        if (!feed_.AwaitFrame()) {
            return false;
        }
    } while (!feed_.NoteFrame());
    NoteTime(feed_.Time());
    AskForMask();
    return true;
}

void CompressedSource::Draw(const Shot& shot) {
    if (uint8_t* mask = TakeMask()) {
        renderer_.HandOver(nullptr, mask);
    }
    renderer_.SetShot(shot);
    renderer_.Draw();
}
