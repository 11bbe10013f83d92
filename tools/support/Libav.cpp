#include "support/Libav.h"

#include <array>
#include <string_view>

extern "C" {
#include <libavutil/pixdesc.h>
}

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

bool HasFullRange(int format, AVColorRange range) {
    const char* name = av_get_pix_fmt_name(static_cast<AVPixelFormat>(format));
    return range == AVCOL_RANGE_JPEG ||
           (name != nullptr && std::string_view(name).substr(0, 4) == "yuvj");
}
