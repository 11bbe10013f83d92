#include "VideoWriter.h"

#include <algorithm>
#include <cmath>

#include "support/ToolError.h"

namespace {

/// As large as the frames, or one pixel more.
Size SizeFor(const VideoFormat& format, Size frame) {
    return format.even ? Size{frame.width + frame.width % 2, frame.height + frame.height % 2}
                       : frame;
}

VideoCoding CodingOf(const std::string& codec) {
    if (codec == "vp9") {
        return {AV_CODEC_ID_VP9,
                "libvpx-vp9",
                AV_PIX_FMT_YUV420P,
                {{"crf", "18"}, {"deadline", "good"}, {"cpu-used", "4"}, {"lag-in-frames", "0"}}};
    }
    if (codec == "ffv1") {
        return {AV_CODEC_ID_FFV1, "ffv1", AV_PIX_FMT_BGRA, {}};
    }
    if (codec == "h265") {
        return {AV_CODEC_ID_HEVC,
                "libx265",
                AV_PIX_FMT_YUV420P,
                // Without its settings in the stream, which name the processor.
                {{"crf", "18"}, {"preset", "fast"}, {"x265-params", "log-level=none:info=0"}}};
    }
    return {AV_CODEC_ID_H264, "libx264", AV_PIX_FMT_YUV420P, {{"crf", "18"}, {"preset", "fast"}}};
}

bool Has(const VideoCoding& coding, const char* option) {
    return std::any_of(coding.options.begin(), coding.options.end(),
                       [option](const auto& entry) { return entry.first == option; });
}

/// What the user chose instead of the usual.
VideoCoding Chosen(const VideoFormat& format, const OutputSettings& settings) {
    const Encoding& encoding = settings.encoding;
    VideoCoding coding = format.coding;
    if (!encoding.codec.empty() && CodingOf(encoding.codec).codec != coding.codec) {
        coding = CodingOf(encoding.codec);
    }
    if (!encoding.preset.empty() && !Has(coding, "preset")) {
        throw ToolError(settings.path + ": " + avcodec_get_name(coding.codec) + " has no --preset");
    }
    if (encoding.crf >= 0 && !Has(coding, "crf")) {
        throw ToolError(settings.path + ": " + avcodec_get_name(coding.codec) + " has no --crf");
    }
    for (auto& [name, value] : coding.options) {
        if (name == "crf" && encoding.crf >= 0) {
            value = std::to_string(encoding.crf);
        } else if (name == "preset" && !encoding.preset.empty()) {
            value = encoding.preset;
        }
    }
    return coding;
}

/// \return \p muxer, if its container takes the codec
Muxer& Taking(Muxer& muxer, const VideoCoding& coding) {
    if (!muxer.Takes(coding.codec)) {
        throw ToolError(muxer.Target() + ": this kind of file does not take " +
                        avcodec_get_name(coding.codec));
    }
    return muxer;
}

/// What the colors of the frames are.
AVCodecParameters ColorsOf(const OutputSettings& settings) {
    AVCodecParameters colors = settings.input.Codec();
    if (settings.toneMapped) {
        colors.format = AV_PIX_FMT_YUV420P;
        colors.color_range = AVCOL_RANGE_MPEG;
        colors.color_space = AVCOL_SPC_BT709;
        colors.color_primaries = AVCOL_PRI_BT709;
        colors.color_trc = AVCOL_TRC_BT709;
    }
    return colors;
}

/// A part of an MP4 begins later than at 0. The header counts that time in thousandths, unless it
/// is told otherwise.
LibavOptions MuxingOf(const VideoFormat& format, const OutputSettings& settings, bool streams) {
    LibavOptions options = streams ? format.streaming : format.muxing;
    if (settings.isPart && format.container == std::string("mp4")) {
        options.emplace_back("movie_timescale", std::to_string(settings.clock.tick.den));
    }
    return options;
}

/// Repeats the last column and the last row.
void Pad(const Image& frame, Image& padded) {
    for (int y = 0; y < padded.size.height; ++y) {
        const uint8_t* row = frame.At(0, std::min(y, frame.size.height - 1));
        const auto bytes = static_cast<size_t>(frame.size.width) * Image::kChannels;
        uint8_t* to = std::copy_n(row, bytes, padded.At(0, y));
        if (padded.size.width > frame.size.width) {
            std::copy_n(row + bytes - Image::kChannels, size_t{Image::kChannels}, to);
        }
    }
}

}  // namespace

VideoWriter::VideoWriter(const VideoFormat& format, const OutputSettings& settings)
    : coding_(Chosen(format, settings)),
      backdrop_(settings.backdrop),
      leavesAudio_(settings.isPart),
      size_(SizeFor(format, settings.size)),
      muxer_(settings.path, format.container, settings.existing),
      video_(Taking(muxer_, coding_), coding_, size_, settings.input.FrameRate(), settings.clock,
             TagsOf(ColorsOf(settings), settings.size, coding_.format)),
      audio_(muxer_, settings.input, settings.begin, settings.encoding.audio),
      clock_(settings.clock),
      converter_(video_.Encoder(), HasAlpha(coding_.format) ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGB0) {
    picture_->format = coding_.format;
    picture_->width = size_.width;
    picture_->height = size_.height;
    muxer_.Check(av_frame_get_buffer(picture_.get(), 0));
    if (size_.width != settings.size.width || size_.height != settings.size.height) {
        padded_.emplace(size_);
    }
    if (!settings.turned && settings.input.DisplayMatrix() != nullptr) {
        video_.SetDisplayMatrix(settings.input.DisplayMatrix());
        losesMatrix_ = !format.keepsMatrix;
    }
    lead_ = std::llround(audio_.Lead() / av_q2d(settings.clock.tick));
    muxer_.Begin(MuxingOf(format, settings, muxer_.IsPipe()));
}

std::string VideoWriter::Remark() const {
    std::string remark;
    if (padded_.has_value()) {
        remark = "padded to " + std::to_string(size_.width) + "x" + std::to_string(size_.height) +
                 ", as the format needs an even width and height";
    }
    if (losesMatrix_) {
        remark += std::string(remark.empty() ? "" : "; ") +
                  "the format does not keep the display matrix, so players will not turn the "
                  "pictures upright";
    }
    return remark;
}

void VideoWriter::Write(Image& frame, int64_t time) {
    muxer_.Check(av_frame_make_writable(picture_.get()));
    if (!HasAlpha(coding_.format)) {
        backdrop_.Flatten(frame);
    }
    if (padded_.has_value()) {
        Pad(frame, *padded_);
    }
    converter_.Convert((padded_.has_value() ? *padded_ : frame).pixels.data(), *picture_);
    video_.Write(*picture_, time + lead_);
    if (!leavesAudio_) {
        audio_.WriteUntil(video_.Seconds());
    }
}

void VideoWriter::Join(const VideoFile& input, int64_t time) {
    audio_.Join(input, clock_.Seconds(time + lead_));
}

void VideoWriter::Finish(bool cutShort) {
    if (!cutShort && !leavesAudio_) {
        audio_.WriteRest();
    }
    video_.Finish();
    if (!leavesAudio_) {
        audio_.Finish();
    }
    muxer_.Finish();
}
