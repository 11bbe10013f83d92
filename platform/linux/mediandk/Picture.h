#pragma once

#include <cstdint>

#include "Av.h"

/// Values are those of AMEDIAFORMAT_KEY_COLOR_STANDARD.
enum class ColorMatrix { kBt709 = 1, kBt601 = 2, kBt2020 = 6 };

/// Describes a picture's bytes.
struct PictureFormat {
    int width = 0;
    int height = 0;
    int bufferWidth = 0;  ///< With the padding.
    int bufferHeight = 0;
    AVPixelFormat layout = AV_PIX_FMT_YUV420P;
    ColorMatrix matrix = ColorMatrix::kBt601;
    bool fullRange = false;

    bool operator==(const PictureFormat& other) const;
    bool operator!=(const PictureFormat& other) const { return !(*this == other); }
};

/// A decoded picture, or, without a frame, the end of the stream.
struct Picture {
    av::Frame frame;
    PictureFormat format;
    int64_t timeUs = 0;
    int64_t unit = -1;  ///< The number of its unit.
};

/// Uses the colors that the stream states, or else common defaults.
/// \param padded buffers have a multiple of 64 columns and of 16 rows.
PictureFormat FormatOf(const AVFrame& frame, bool padded);

/// Size of a buffer with chroma halved both ways.
size_t PlanarSize(const PictureFormat& format);

/// Whether ConvertToRgba and ConvertToPlanar support the layout.
bool CanConvert(const PictureFormat& format);

/// Converts \p rows rows of the buffer, from \p row on, which is even. The padding becomes green.
/// \param rgba bufferWidth times \p rows pixels.
void ConvertToRgba(const Picture& picture, int row, int rows, uint8_t* rgba);

/// Leaves the padding as it is.
/// \param planes PlanarSize bytes: Y, U, V, chroma halved both ways.
void ConvertToPlanar(const Picture& picture, uint8_t* planes);
