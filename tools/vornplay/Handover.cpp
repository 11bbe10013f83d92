#include "Handover.h"

#include <linux_platform/Host.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "CompressedSource.h"
#include "CorrectedReader.h"
#include "support/ToolError.h"

namespace {

bool IsVideo(const AVInputFormat& type) {
    const std::string_view format = type.name;
    return format.find("image2") == std::string_view::npos &&
           format.find("_pipe") == std::string_view::npos;
}

bool IsOfThePlatform(AVCodecID codec) {
    return codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_MJPEG;
}

bool IsDecodable(const AVCodecParameters& codec) {
    constexpr std::array kLayouts = {AV_PIX_FMT_YUV420P,  AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUV422P,
                                     AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUV444P,  AV_PIX_FMT_YUVJ444P,
                                     AV_PIX_FMT_GRAY8};
    return IsOfThePlatform(codec.codec_id) &&
           std::find(kLayouts.begin(), kLayouts.end(), codec.format) != kLayouts.end();
}

/// Why the video cannot go compressed; empty if it can.
std::string Objection(const VideoFile& file, const Options& options) {
    const AVCodecParameters& codec = file.Codec();
    const PictureShape shape = file.Shape(options.autorotate);
    const Size upright = shape.Upright({codec.width, codec.height});
    const bool scaled = options.size.width > 0 && (options.size.width != upright.width ||
                                                   options.size.height != upright.height);
    if (!IsVideo(file.Format()) || !IsDecodable(codec)) {
        return "no H.264 or Motion-JPEG video of 8 bits";
    }
    if (options.rgb || options.rgba) {
        return "--rgb and --rgba are for decoded frames";
    }
    if (shape.flip) {
        return "its pictures are flipped";
    }
    if (options.handover != Handover::kCompressed && !options.realtime) {
        if (IsHdr(codec.color_trc)) {
            return "its colors are tone-mapped";
        }
        if (IsInterlaced(codec.field_order) && !options.keepInterlaced) {
            return "its pictures are interlaced";
        }
    }
    // Frames that go as pixels are scaled with more care.
    return scaled && options.handover != Handover::kCompressed ? "--size is not the input's" : "";
}

/// Whether the file's header names a video of a codec that the platform decodes.
bool NamesOurCodec(const std::string& path) {
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, path.c_str(), nullptr, nullptr) < 0) {
        return false;
    }
    const bool found = std::any_of(
        input->streams, input->streams + input->nb_streams,
        [](const AVStream* stream) { return IsOfThePlatform(stream->codecpar->codec_id); });
    const bool video = IsVideo(*input->iformat);
    avformat_close_input(&input);
    return found && video;
}

/// \return null if there is no JVM, and then why in \p objection
JavaVM* StartJava(const std::string& platform, std::string& objection) {
    static JavaVM* java = nullptr;  // A process can start one, once.
    if (java != nullptr) {
        return java;
    }
    const std::string jar = platform + "/android.jar";
    HostJavaOptions options = {};
    if (!platform.empty()) {
        options.classPath = jar.c_str();
        options.libraryPath = platform.c_str();
    }
    std::array<char, 512> error{};
    java = HostJava_start(&options, error.data(), error.size());
    objection = error.data();
    return java;
}

/// \return the JVM if the platform decodes the file; else null, and why not in \p objection
JavaVM* StartDecoding(const VideoFile& file, const Options& options, std::string& objection) {
    JavaVM* java = StartJava(options.platform, objection);
    const VEResult result = java != nullptr ? VECheckSource(SourceOf(file.Codec())) : VE_OK;
    if (result != VE_OK) {
        objection = std::string(VEResultText(result)) + (options.realtime ? "" : kDecodeHere);
    }
    return result == VE_OK ? java : nullptr;
}

/// Fails if the options insist on compressed frames; else says why they go as pixels, if asked to.
void Refuse(const Options& options, const std::string& objection) {
    if (options.handover == Handover::kCompressed || options.realtime) {
        throw ToolError(options.input + ": " + objection);
    }
    if (options.verbose) {
        std::cerr << "vornplay: not decoded by the platform: " << objection << '\n';
    }
}

}  // namespace

std::future<void> PrepareJava(const Options& options) {
    std::error_code ignored;
    if (options.handover == Handover::kPixels ||
        !std::filesystem::is_regular_file(options.input, ignored)) {
        return {};
    }
    return std::async(std::launch::async, [input = options.input, platform = options.platform] {
        std::string objection;  // JavaFor tries again, and reports it.
        JavaVM* java = NamesOurCodec(input) ? StartJava(platform, objection) : nullptr;
        if (java != nullptr) {
            java->DetachCurrentThread();
        }
    });
}

JavaVM* JavaFor(const VideoFile& file, const Options& options) {
    if (options.handover == Handover::kPixels) {
        return nullptr;
    }
    std::string objection = Objection(file, options);
    JavaVM* java = objection.empty() ? StartDecoding(file, options, objection) : nullptr;
    if (java == nullptr) {
        Refuse(options, objection);
    }
    return java;
}
