#pragma once

#include <string>
#include <vector>

#include "support/Libav.h"

/// Higher clips are in the colors of BT.709, the others in those of BT.601.
constexpr int kTelevisionHeight = 576;

/// H.264 access units with start codes. The clip can be repeated: after the last unit the first can
/// follow.
struct Clip {
    int width = 0;
    int height = 0;
    int reorderDepth = 0;  ///< In pictures.
    std::vector<LibavPtr<AVPacket>> units;
};

/// Such as "640x480".
inline std::string SizeOf(const Clip& clip) {
    return std::to_string(clip.width) + "x" + std::to_string(clip.height);
}

/// The first \p count units of a file, or all if it has fewer. \throws ToolError
Clip LoadClip(const std::string& path, size_t count);

/// A clip of moving wave patterns with some noise, so that every block of a picture has motion and
/// a residual to decode.
/// \param slices of a picture
Clip GenerateClip(int width, int height, size_t count, int slices = 1);
