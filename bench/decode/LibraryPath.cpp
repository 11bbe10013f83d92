#include "LibraryPath.h"

#include <stdexcept>

#include "render/VERendererExt.h"

LibraryPath::LibraryPath(const Clip& clip, JavaVM* machine, WayIn wayIn) : clip_(clip) {
    glGenTextures(1, &target_);
    if (wayIn == WayIn::kGuarded) {
        createGuarded(machine);
    } else {
        create(machine);
    }
    decoder_ = HostDecoder_acquire();
    HostDecoder_setLockStep(decoder_, 1);
    HostDecoder_setReorderDepth(decoder_, clip.reorderDepth);
    for (int i = 0; i < clip.reorderDepth; ++i) {
        give();
    }
}

void LibraryPath::create(JavaVM* machine) {
    VERendererMode mode = {};
    mode.outputMode = VE_OUTPUT_PICTURE;
    mode.modeType = VE_MODE_H264;
    mode.textureWidth = clip_.width;
    mode.textureHeight = clip_.height;
    VECreateRendererHandle(&handle_, static_cast<int>(target_), &mode, machine);
}

/// The functions of VERenderer.h draw this one, too.
void LibraryPath::createGuarded(JavaVM* machine) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = VE_SOURCE_H264;
    options.sourceWidth = clip_.width;
    options.sourceHeight = clip_.height;
    options.outputTexture = target_;
    options.javaVM = machine;
    VERenderer* renderer = nullptr;
    const VEResult result = VECreateRenderer(&options, &renderer);
    if (result != VE_OK) {
        throw std::runtime_error(VEResultText(result));
    }
    handle_ = renderer;
}

LibraryPath::~LibraryPath() {
    HostDecoder_release(decoder_);
    VEDestroyRenderer(handle_);
}

bool LibraryPath::wantsUnit() {
    return HostDecoder_waitForInput(decoder_, 0) == HOST_READY;
}

void LibraryPath::give() {
    const AVPacket& unit = *clip_.units[unit_];
    unit_ = (unit_ + 1) % clip_.units.size();
    VEUpdateCompressedData(handle_, unit.data, unit.size);
}

bool LibraryPath::show(int timeoutUs) {
    HostFrames frames;
    const HostResult result = HostDecoder_waitForFrame(decoder_, seen_, timeoutUs, &frames);
    if (result == HOST_TIMED_OUT) {
        return false;
    }
    if (result != HOST_READY || frames.delivered != seen_ + 1) {
        throw std::runtime_error("the platform's decoder lost a picture");
    }
    seen_ = frames.delivered;
    VEUpdateRenderer(handle_, nullptr, 0, true, nullptr);
    glFinish();
    return true;
}
