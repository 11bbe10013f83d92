// Raw frames through both interfaces on a fake GL, for the memory sanitizer, which allows no code
// that it has not compiled: no GL, and no test framework.

#include <android/log.h>
#include <media/NdkMediaFormat.h>

#include <cstdarg>
#include <cstdio>
#include <initializer_list>
#include <vector>

#include "render/VERenderer.h"
#include "render/VERendererExt.h"

// Of the platform's library, which is not linked.
const char* AMEDIAFORMAT_KEY_WIDTH = "width";
const char* AMEDIAFORMAT_KEY_HEIGHT = "height";
const char* AMEDIAFORMAT_KEY_MIME = "mime";

/// Reads what is logged, in place of the platform's.
int __android_log_vprint(int /*prio*/, const char* /*tag*/, const char* fmt, va_list ap) {
    char line[256];
    return std::vsnprintf(line, sizeof(line), fmt, ap);
}

namespace {

constexpr int kWidth = 7;
constexpr int kHeight = 5;

std::vector<unsigned char> Pixels(bool rgb) {
    return std::vector<unsigned char>(size_t{kWidth} * kHeight * (rgb ? 3 : 4), 9);
}

bool DrawWithSevenFunctions(int outputMode, bool rgb) {
    VERendererMode mode = {
        outputMode, rgb ? VE_MODE_RGB : VE_MODE_RGBA, kWidth, kHeight, VE_MASK_RGBA, kWidth,
        kHeight};
    void* handle = nullptr;
    bool done = VECreateRendererHandle(&handle, 1, &mode, nullptr) == 0;
    std::vector<unsigned char> frame = Pixels(rgb);
    std::vector<unsigned char> mask = Pixels(false);
    VEStickerList stickers = {{1, 2}, {-1, -1}, {3, 4}};
    for (int call = 0; call < 5; ++call) {
        void* data = call == 3 ? nullptr : frame.data();
        const auto size = static_cast<unsigned>(frame.size());
        done = done && VEUpdateUserPosition(handle, 0.1F, 0, 1.0F, 0) == 0 &&
               VEUpdateRendererWithSticker(handle, data, size, true, mask.data(), 2, stickers) == 0;
    }
    VEDestroyRenderer(handle);
    return done;
}

bool DrawGuarded(bool later, bool rgb) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = rgb ? VE_SOURCE_RGB : VE_SOURCE_RGBA;
    options.sourceWidth = options.maskWidth = kWidth;
    options.sourceHeight = options.maskHeight = kHeight;
    options.outputTexture = 1;
    options.maskFormat = VE_MASK_RGBA;
    options.drawLater = later;
    options.keepState = rgb;
    VERenderer* renderer = nullptr;
    bool done = VECreateRenderer(&options, &renderer) == VE_OK;
    const std::vector<unsigned char> frame = Pixels(rgb);
    const std::vector<unsigned char> mask = Pixels(false);
    const int sticker[2] = {3, 4};
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.mask = mask.data();
    draw.stickerTexture = 2;
    draw.stickers = sticker;
    draw.stickerCount = 1;
    for (int call = 0; call < 5; ++call) {
        draw.frame = call == 3 ? nullptr : frame.data();
        VEDrawn drawn = VEMakeDrawn();
        done = done && VEDraw(renderer, &draw, &drawn) == VE_OK &&
               drawn.picture == (!later || call > 0);
    }
    return done && VECloseRenderer(renderer, VE_CONTEXT_CURRENT) == VE_OK;
}

}  // namespace

int main() {
    bool done = true;
    for (const bool second : {false, true}) {
        for (const bool rgb : {false, true}) {
            done =
                DrawWithSevenFunctions(second ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE, rgb) && done;
            done = DrawGuarded(second, rgb) && done;
        }
    }
    return done ? 0 : 1;
}
