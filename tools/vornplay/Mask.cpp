#include "Mask.h"

#include <algorithm>
#include <utility>

#include "support/Image.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace {

bool IsTransparent(uint32_t paletteEntry) {
    return paletteEntry >> 24 != 255;
}

/// Every palette has room for alpha. It counts only if an entry is not opaque.
bool HasAlpha(const AVFrame& frame) {
    constexpr int kPaletteSize = 256;
    if (frame.format == AV_PIX_FMT_PAL8) {
        const auto* palette = reinterpret_cast<const uint32_t*>(frame.data[1]);
        return std::any_of(palette, palette + kPaletteSize, IsTransparent);
    }
    const AVPixFmtDescriptor* format =
        av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return (format->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

uint8_t Luma(const uint8_t* pixel) {
    // The BT.601 weights in 256ths: exact for gray.
    return static_cast<uint8_t>((77 * pixel[0] + 150 * pixel[1] + 29 * pixel[2] + 128) >> 8);
}

/// Makes transparent pixels black, which keys the picture out, and other black pixels almost black.
void KeyByAlpha(uint8_t* pixel) {
    const bool black = pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0;
    if (pixel[3] == 0 || black) {
        std::fill_n(pixel, 3, pixel[3] == 0 ? uint8_t{0} : uint8_t{1});
    }
}

void KeyByLuma(uint8_t* pixel) {
    std::fill_n(pixel, Image::kChannels, Luma(pixel));
}

/// Takes the fourth channel out, in place.
void DropAlpha(uint8_t* pixels, size_t count) {
    const uint8_t* from = pixels;
    for (size_t i = 0; i < count; ++i, from += Image::kChannels, pixels += 3) {
        std::copy_n(from, 3, pixels);
    }
}

/// Opens a file at a frame: at the last one if it has fewer, at the first if its length is not
/// known.
VideoReader OpenAt(const std::string& path, int64_t frame) {
    VideoFile file(path);
    const int64_t last = file.ExpectedFrames() - 1;
    const double rate = av_q2d(file.FrameRate());
    if (frame <= 0 || last <= 0) {
        return VideoReader(std::move(file));
    }
    return VideoReader(path, static_cast<double>(std::min(frame, last)) / rate);
}

}  // namespace

Mask::Mask(const std::string& path, Size size, bool rgb, int64_t first)
    : reader_(OpenAt(path, first)),
      first_(reader_.First()),
      size_(SizeOr(size, first_)),
      converter_(size_, AV_PIX_FMT_RGBA),
      rgb_(rgb) {}

uint8_t* Mask::Next() {
    const AVFrame* frame = started_ ? reader_.Next() : &first_;
    started_ = true;
    if (frame != nullptr) {
        pixels_ = Keep(*frame);
    }
    return pixels_;
}

uint8_t* Mask::Keep(const AVFrame& frame) {
    uint8_t* pixels = converter_.Convert(frame);
    const size_t bytes = converter_.ByteSize();
    const auto key = HasAlpha(frame) ? KeyByAlpha : KeyByLuma;
    for (size_t i = 0; i < bytes; i += Image::kChannels) {
        key(pixels + i);
    }
    if (rgb_) {
        DropAlpha(pixels, bytes / Image::kChannels);
    }
    return pixels;
}
