#include "PathChoice.h"

#include <linux_platform/Host.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>
#include <utility>

#include "CpuPath.h"
#include "DecodePath.h"
#include "RealtimePath.h"
#include "support/ToolError.h"

namespace {

bool IsVideo(const VideoFile& file) {
    const std::string_view format = file.Format().name;
    return format.find("image2") == std::string_view::npos &&
           format.find("_pipe") == std::string_view::npos;
}

bool IsDecodable(const AVCodecParameters& codec) {
    constexpr std::array kLayouts = {AV_PIX_FMT_YUV420P,  AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUV422P,
                                     AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUV444P,  AV_PIX_FMT_YUVJ444P,
                                     AV_PIX_FMT_GRAY8};
    const bool known = codec.codec_id == AV_CODEC_ID_H264 || codec.codec_id == AV_CODEC_ID_MJPEG;
    return known && std::find(kLayouts.begin(), kLayouts.end(), codec.format) != kLayouts.end();
}

/// Why not to hand the video over compressed; empty where nothing speaks against it.
std::string Objection(const VideoFile& file, const Options& options) {
    const AVCodecParameters& codec = file.Codec();
    const bool scaled = options.size.width > 0 &&
                        (options.size.width != codec.width || options.size.height != codec.height);
    if (!IsVideo(file) || !IsDecodable(codec)) {
        return "no H.264 or Motion-JPEG video of 8 bits";
    }
    if (options.rgb || options.rgba) {
        return "--rgb and --rgba are for decoded frames";
    }
    // The other path scales with more care.
    return scaled && options.path != PathOption::kDecode ? "--size is not the input's" : "";
}

/// \return null where there is no Java machine, and why in \p objection.
JavaVM* StartJava(const std::string& platform, std::string& objection) {
    const std::string jar = platform + "/android.jar";
    HostJavaOptions options = {};
    if (!platform.empty()) {
        options.classPath = jar.c_str();
        options.libraryPath = platform.c_str();
    }
    std::array<char, 512> error{};
    JavaVM* machine = HostJava_start(&options, error.data(), error.size());
    objection = error.data();
    return machine;
}

std::unique_ptr<FramePath> OpenPlatformPath(VideoFile file, const Options& options,
                                            RendererSettings settings, const MaskSource& nextMask) {
    if (options.realtime) {
        return std::make_unique<RealtimePath>(std::move(file), options, std::move(settings),
                                              nextMask);
    }
    return std::make_unique<DecodePath>(std::move(file), options, std::move(settings), nextMask);
}

void Refuse(const Options& options, const std::string& objection) {
    if (options.path == PathOption::kDecode || options.realtime) {
        throw ToolError(options.input + ": " + objection);
    }
    if (options.verbose) {
        std::cerr << "vornplay: not decoded by the platform: " << objection << '\n';
    }
}

}  // namespace

JavaVM* MachineFor(const VideoFile& file, const Options& options) {
    JavaVM* machine = nullptr;
    if (options.path != PathOption::kCpu) {
        std::string objection = Objection(file, options);
        if (objection.empty()) {
            machine = StartJava(options.platform, objection);
        }
        if (machine == nullptr) {
            Refuse(options, objection);
        }
    }
    return machine;
}

std::unique_ptr<FramePath> OpenPath(const Options& options, RendererSettings settings,
                                    const MaskSource& nextMask) {
    VideoFile file(options.input, options.startSeconds);
    settings.javaVM = MachineFor(file, options);
    if (settings.javaVM != nullptr) {
        return OpenPlatformPath(std::move(file), options, std::move(settings), nextMask);
    }
    return std::make_unique<CpuPath>(std::move(file), options, std::move(settings), nextMask);
}
