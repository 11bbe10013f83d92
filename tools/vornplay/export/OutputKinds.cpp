#include "OutputKinds.h"

#include "GifWriter.h"
#include "PngWriters.h"
#include "VideoWriter.h"
#include "WebpWriter.h"

namespace {

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
             {"lag-in-frames", "0"},  // Else a stop has to wait for them.
             {"auto-alt-ref", "0"}}};
}

VideoCoding Apng() {
    return {AV_CODEC_ID_APNG, nullptr, AV_PIX_FMT_RGBA, {{"pred", "up"}}};
}

auto Video(const VideoFormat& format) {
    return [format](const OutputSettings& settings) {
        return std::make_unique<VideoWriter>(format, settings);
    };
}

std::unique_ptr<FrameSink> Png(const OutputSettings& settings) {
    return std::make_unique<PngWriter>(settings);
}

std::unique_ptr<FrameSink> NumberedPng(const OutputSettings& settings) {
    return std::make_unique<PngSequence>(settings);
}

std::unique_ptr<FrameSink> Webp(const OutputSettings& settings) {
    return std::make_unique<WebpWriter>(settings);
}

std::unique_ptr<FrameSink> Gif(const OutputSettings& settings) {
    return std::make_unique<GifWriter>(settings);
}

}  // namespace

const std::vector<OutputKind>& OutputKinds() {
    using Frames = OutputFrames;
    using Alpha = OutputAlpha;
    static const std::vector<OutputKind> kKinds = {
        {"x.png", "the first drawn frame", Frames::kFirst, Alpha::kKept, nullptr, false, Png},
        {"dir/%04d.png", "all drawn frames, numbered from 1 on", Frames::kNumbered, Alpha::kKept,
         nullptr, false, NumberedPng},
        // The index goes to the front, so that playing can begin before all of the file is there.
        {"x.mp4", "H.264 video", Frames::kAll, Alpha::kFlattened,
         "AAC, MP3, AC-3, Opus, FLAC and more", true,
         Video({"mp4",
                H264(),
                {{"movflags", "+faststart"}},
                {{"movflags", "+frag_keyframe+empty_moov+default_base_moof"}},
                true,
                true})},
        {"x.mkv", "H.264 video", Frames::kAll, Alpha::kFlattened, "almost any", true,
         Video({"matroska", H264(), {}, {}, true, false})},
        {"x.ts", "H.264 video", Frames::kAll, Alpha::kFlattened, "AAC, MP3, AC-3 and Opus", true,
         Video({"mpegts", H264(), {}, {}, true, false})},
        {"x.webm", "VP9 video", Frames::kAll, Alpha::kKept, "Opus and Vorbis", true,
         Video({"webm", Vp9(), {}, {}, false, false})},
        {"x.webp", "an animation of lossy pictures", Frames::kAll, Alpha::kKept, nullptr, false,
         Webp},
        {"x.gif", "an animation with 256 colors for each frame", Frames::kAll, Alpha::kOneBit,
         nullptr, true, Gif},
        {"x.apng", "an animation without loss", Frames::kAll, Alpha::kKept, nullptr, false,
         Video({"apng", Apng(), {{"plays", "0"}}, {}, false, false})},
    };
    return kKinds;
}
