#include "VideoWriter.h"

#include <algorithm>
#include <array>

#include "support/ToolError.h"

namespace {

constexpr int kRgbBytes = 3;

VideoCoding H264() {
    // Options of the usual encoder; others do without.
    return {AV_CODEC_ID_H264, nullptr, AV_PIX_FMT_YUV420P, {{"crf", "18"}, {"preset", "fast"}}};
}

VideoCoding Vp9() {
    // Alpha is a second stream, whose packets must pair with the first one's: none may be hidden.
    return {AV_CODEC_ID_VP9,
            "libvpx-vp9",
            AV_PIX_FMT_YUVA420P,
            {{"crf", "18"},
             {"deadline", "good"},
             {"cpu-used", "4"},
             {"row-mt", "1"},
             {"auto-alt-ref", "0"}}};
}

/// \return the path
const std::string& CheckSize(const VideoFormat& format, const std::string& path, Size size) {
    if (format.even && (size.width % 2 != 0 || size.height % 2 != 0)) {
        throw ToolError(path + ": " + format.extension + " needs an even width and height, not " +
                        std::to_string(size.width) + "x" + std::to_string(size.height) +
                        "; give an even --size");
    }
    return path;
}

}  // namespace

const VideoFormat* FindVideoFormat(const std::string& extension) {
    // The index of an mp4 goes to the front, so that playing can begin before all of it is there.
    static const std::array<VideoFormat, 3> kFormats = {{
        {".mp4", "mp4", H264(), {{"movflags", "+faststart"}}, false, true},
        {".mkv", "matroska", H264(), {}, false, true},
        {".webm", "webm", Vp9(), {}, true, false},
    }};
    const auto* const found =
        std::find_if(kFormats.begin(), kFormats.end(),
                     [&](const VideoFormat& format) { return extension == format.extension; });
    return found != kFormats.end() ? found : nullptr;
}

VideoWriter::VideoWriter(const VideoFormat& format, const Options& options, Size size,
                         const VideoFile& input)
    : format_(format),
      backdrop_(options.backdrop),
      muxer_(CheckSize(format, options.out, size), format.container),
      video_(muxer_, format.coding, size, input.FrameRate(), TagsOf(input.Codec(), size)),
      audio_(muxer_, input),
      converter_(video_.Encoder(), format.alpha ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGB24) {
    picture_->format = video_.Encoder().pix_fmt;
    picture_->width = size.width;
    picture_->height = size.height;
    muxer_.Check(av_frame_get_buffer(picture_.get(), 0));
    if (!format.alpha) {
        rgb_.resize(static_cast<size_t>(size.width) * static_cast<size_t>(size.height) * kRgbBytes);
    }
    muxer_.Begin(format.muxing);
}

const uint8_t* VideoWriter::Pixels(const Image& frame) {
    if (format_.alpha) {
        return frame.pixels.data();
    }
    backdrop_.Flatten(frame, rgb_.data());
    return rgb_.data();
}

void VideoWriter::Write(const Image& frame) {
    muxer_.Check(av_frame_make_writable(picture_.get()));
    converter_.Convert(Pixels(frame), *picture_);
    video_.Write(*picture_);
    audio_.CopyUntil(video_.Seconds());
}

void VideoWriter::Finish(bool cutShort) {
    if (!cutShort) {
        audio_.CopyRest();
    }
    video_.Finish();
    muxer_.Finish();
}
