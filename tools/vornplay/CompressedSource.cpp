#include "CompressedSource.h"

#include <utility>

#include "support/ToolError.h"

namespace {

RendererSettings For(const VideoFile& file, RendererSettings settings) {
    const AVCodecParameters& codec = file.Codec();
    settings.input = file.Path();
    settings.source = SourceOf(codec);
    settings.sourceSize = {codec.width, codec.height};
    if (settings.size.width == 0) {
        settings.size = settings.shape.Upright(settings.sourceSize);
    }
    return settings;
}

}  // namespace

int32_t SourceOf(const AVCodecParameters& codec) {
    return codec.codec_id == AV_CODEC_ID_H264 ? VE_SOURCE_H264 : VE_SOURCE_MJPEG;
}

CompressedSource::CompressedSource(VideoFile file, RendererSettings settings, MaskSource nextMask)
    : FrameSource(std::move(nextMask)),
      file_(std::move(file)),
      renderer_(For(file_, std::move(settings))),
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
    const VEDrawn drawn = renderer_.Draw(shot, nullptr, TakeMask());
    if (!drawn.picture || drawn.ptsUs != feed_.PtsUs()) {
        throw ToolError(file_.Path() + ": the decoder shows another frame than it announced" +
                        renderer_.Settings().hint);
    }
}
