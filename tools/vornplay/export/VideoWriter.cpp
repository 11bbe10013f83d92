#include "VideoWriter.h"

#include <cmath>
#include <filesystem>

#include "support/ToolError.h"

namespace {

constexpr int kRgbBytes = 3;

/// \return the path
const std::string& CheckSize(const VideoFormat& format, const OutputSettings& settings) {
    const Size size = settings.size;
    if (format.even && (size.width % 2 != 0 || size.height % 2 != 0)) {
        throw ToolError(settings.path + ": " +
                        std::filesystem::path(settings.path).extension().string() +
                        " needs an even width and height, not " + std::to_string(size.width) + "x" +
                        std::to_string(size.height) + "; give an even --size");
    }
    return settings.path;
}

}  // namespace

VideoWriter::VideoWriter(const VideoFormat& format, const OutputSettings& settings)
    : backdrop_(settings.backdrop),
      muxer_(CheckSize(format, settings), format.container, settings.existing),
      video_(muxer_, format.coding, settings.size, settings.input.FrameRate(), settings.clock,
             TagsOf(settings.input.Codec(), settings.size, format.coding.format)),
      audio_(muxer_, settings.input, settings.begin),
      converter_(video_.Encoder(),
                 HasAlpha(format.coding.format) ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGB24) {
    picture_->format = format.coding.format;
    picture_->width = settings.size.width;
    picture_->height = settings.size.height;
    muxer_.Check(av_frame_get_buffer(picture_.get(), 0));
    if (!HasAlpha(format.coding.format)) {
        rgb_.resize(static_cast<size_t>(settings.size.width) *
                    static_cast<size_t>(settings.size.height) * kRgbBytes);
    }
    if (!settings.turned && settings.input.DisplayMatrix() != nullptr) {
        video_.SetDisplayMatrix(settings.input.DisplayMatrix());
    }
    lead_ = std::llround(audio_.Lead() / av_q2d(settings.clock.tick));
    muxer_.Begin(format.muxing);
}

const uint8_t* VideoWriter::Pixels(const Image& frame) {
    if (rgb_.empty()) {
        return frame.pixels.data();
    }
    backdrop_.Flatten(frame, rgb_.data());
    return rgb_.data();
}

void VideoWriter::Write(const Image& frame, int64_t time) {
    muxer_.Check(av_frame_make_writable(picture_.get()));
    converter_.Convert(Pixels(frame), *picture_);
    video_.Write(*picture_, time + lead_);
    audio_.CopyUntil(video_.Seconds());
}

void VideoWriter::Finish(bool cutShort) {
    if (!cutShort) {
        audio_.CopyRest();
    }
    video_.Finish();
    muxer_.Finish();
}
