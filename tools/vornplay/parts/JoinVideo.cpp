#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>

#include "Interrupt.h"
#include "export/AudioWriter.h"
#include "export/Muxer.h"
#include "parts/Fingerprint.h"
#include "parts/Joiners.h"
#include "support/ToolError.h"
#include "support/VideoFile.h"

extern "C" {
#include <libavutil/parseutils.h>
}

namespace {

AVRational FrameRateOf(const PartRecord& part) {
    AVRational rate{};
    av_parse_ratio(&rate, part.common.at("frame_rate").get<std::string>().c_str(),
                   std::numeric_limits<int>::max(), 0, nullptr);
    return rate;
}

bool AreAlike(const AVCodecParameters& one, const AVCodecParameters& other) {
    return one.codec_id == other.codec_id && one.format == other.format &&
           one.width == other.width && one.height == other.height &&
           one.color_range == other.color_range && one.color_space == other.color_space &&
           one.color_primaries == other.color_primaries && one.color_trc == other.color_trc &&
           std::equal(one.extradata, one.extradata + one.extradata_size, other.extradata,
                      other.extradata + other.extradata_size);
}

/// A joined file that is being written.
class JoinedVideo {
public:
    JoinedVideo(const std::string& out, Existing existing, const Parts& parts);

    /// Also ends early, at an interrupt.
    void Append(const PartRecord& part);
    void Finish();

private:
    AVStream& AddVideo();
    VideoFile OpenSource() const;
    void ReportAudio() const;
    void PutInOrder(AVPacket& packet);
    void Write(AVPacket& packet, AVRational unit);
    double EndSeconds() const;

    const Parts& parts_;
    VideoFile first_;
    VideoFile source_;
    Muxer muxer_;
    AVStream& video_;
    AudioWriter audio_;
    int64_t lastDts_ = AV_NOPTS_VALUE;
};

/// libavformat's name of what an extension stands for.
const char* ContainerOf(const std::string& out) {
    return av_guess_format(nullptr, out.c_str(), nullptr)->name;
}

JoinedVideo::JoinedVideo(const std::string& out, Existing existing, const Parts& parts)
    : parts_(parts),
      first_(parts.front().out),
      source_(OpenSource()),
      muxer_(out, ContainerOf(out), existing),
      video_(AddVideo()),
      audio_(muxer_, source_,
             static_cast<double>(parts.front().range.begin) * av_q2d(parts.front().tick),
             parts.front().audio) {
    ReportAudio();
    muxer_.Begin({{"movflags", "+faststart"}});
}

/// The clip, for its audio.
VideoFile JoinedVideo::OpenSource() const {
    const PartRecord& part = parts_.front();
    if (part.audio == AudioWay::kNone) {
        return VideoFile(part.out);
    }
    if (Fingerprint(part.input) != part.common.at("content")) {
        throw ToolError(part.input + ": is not the clip that the parts were made from");
    }
    VideoFile source(part.input, part.startSeconds);
    source.KeepAudio();
    return source;
}

AVStream& JoinedVideo::AddVideo() {
    const AVStream& part = first_.Stream();
    AVStream& video = muxer_.AddCopied(part);
    video.time_base = parts_.front().tick;
    video.avg_frame_rate = FrameRateOf(parts_.front());
    video.sample_aspect_ratio = part.codecpar->sample_aspect_ratio;
    if (const auto* tag = av_dict_get(part.metadata, "alpha_mode", nullptr, 0)) {
        muxer_.Check(av_dict_set(&video.metadata, tag->key, tag->value, 0));
    }
    if (const int32_t* matrix = first_.DisplayMatrix()) {
        constexpr size_t kBytes = 9 * sizeof(*matrix);
        uint8_t* data = av_stream_new_side_data(&video, AV_PKT_DATA_DISPLAYMATRIX, kBytes);
        muxer_.Check(data != nullptr ? 0 : AVERROR(ENOMEM));
        std::copy_n(reinterpret_cast<const uint8_t*>(matrix), kBytes, data);
    }
    return video;
}

void JoinedVideo::ReportAudio() const {
    for (const std::string& codec : audio_.Report().leftOut) {
        std::cerr << "vornplay: " << muxer_.Target() << " does not take " << codec
                  << "; this audio is left out\n";
    }
}

/// The decoding times of a part may begin before those of the part before have ended.
void JoinedVideo::PutInOrder(AVPacket& packet) {
    if (packet.dts == AV_NOPTS_VALUE || (lastDts_ != AV_NOPTS_VALUE && packet.dts <= lastDts_)) {
        packet.dts = lastDts_ != AV_NOPTS_VALUE ? lastDts_ + 1 : packet.pts;
    }
    lastDts_ = packet.dts;
}

void JoinedVideo::Write(AVPacket& packet, AVRational unit) {
    const double shown = static_cast<double>(packet.pts) * av_q2d(unit);
    PutInOrder(packet);
    muxer_.Write(packet, video_, unit);
    audio_.WriteUntil(std::min(shown, EndSeconds()));
}

void JoinedVideo::Append(const PartRecord& part) {
    VideoFile file(part.out);
    if (!AreAlike(first_.Codec(), file.Codec())) {
        throw ToolError(parts_.front().out + " and " + part.out +
                        " do not belong together: their pictures are encoded in different ways");
    }
    int64_t frames = 0;
    for (AVPacket* packet = file.Next(); packet != nullptr; packet = file.Next()) {
        if (Interrupted()) {
            return;
        }
        ++frames;
        Write(*packet, file.Stream().time_base);
    }
    if (frames != part.frames) {
        throw ToolError(part.out + ": has " + std::to_string(frames) + " frames, and should have " +
                        std::to_string(part.frames));
    }
}

/// When the last frame ends.
double JoinedVideo::EndSeconds() const {
    const double tick = av_q2d(parts_.front().tick);
    return static_cast<double>(parts_.back().end + std::llround(audio_.Lead() / tick)) * tick;
}

void JoinedVideo::Finish() {
    if (parts_.back().cutShort) {
        audio_.WriteUntil(EndSeconds());
    } else {
        audio_.WriteRest();
    }
    audio_.Finish();
    muxer_.Finish();
    muxer_.Commit();
}

}  // namespace

std::optional<int64_t> JoinVideo(const std::string& out, Existing existing, const Parts& parts) {
    JoinedVideo joined(out, existing, parts);
    int64_t frames = 0;
    for (const PartRecord& part : parts) {
        joined.Append(part);
        frames += part.frames;
    }
    if (Interrupted()) {
        return std::nullopt;
    }
    joined.Finish();
    return frames;
}
