#include "support/Libav.h"

#include <array>

std::string LibavMessage(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

AVColorSpace UsualColorSpace(int width, int height) {
    constexpr int kHdWidth = 1280;
    constexpr int kHdHeight = 720;
    return width >= kHdWidth || height >= kHdHeight ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}
