#include "GuardedFrames.h"

#include <stdexcept>

namespace {

void Check(VEResult result) {
    if (result != VE_OK) {
        throw std::runtime_error(VEResultText(result));
    }
}

}  // namespace

VERendererOptions KeepingState() {
    VERendererOptions options = VEMakeRendererOptions();
    options.keepState = true;
    return options;
}

VERendererOptions DrawingLater() {
    VERendererOptions options = VEMakeRendererOptions();
    options.drawLater = true;
    return options;
}

VERendererOptions DrawingOnce() {
    VERendererOptions options = VEMakeRendererOptions();
    options.drawOnce = true;
    return options;
}

GuardedFrames::GuardedFrames(const FrameCase& frame, VERendererOptions options) {
    glGenTextures(1, &target_);
    options.source = frame.alpha ? VE_SOURCE_RGBA : VE_SOURCE_RGB;
    options.sourceWidth = frame.width;
    options.sourceHeight = frame.height;
    options.outputTexture = target_;
    Check(VECreateRenderer(&options, &renderer_));
}

GuardedFrames::~GuardedFrames() {
    VECloseRenderer(renderer_, VE_CONTEXT_CURRENT);
    glDeleteTextures(1, &target_);
}

void GuardedFrames::draw(const void* pixels, float zoom) const {
    const VEView view = {0, 0, zoom};
    VEDrawOptions options = VEMakeDrawOptions();
    options.frame = pixels;
    options.view = &view;
    draw(options);
}

void GuardedFrames::draw(const VEDrawOptions& options) const {
    Check(VEDraw(renderer_, &options, nullptr));
}
