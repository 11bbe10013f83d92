#pragma once

#include <string>
#include <vector>

#include "support/Libav.h"

/// H.264 access units with start codes. The clip can be repeated: after the last unit the first can
/// follow.
struct Clip {
    int width = 0;
    int height = 0;
    int reorderDepth = 0;  ///< In pictures.
    std::vector<LibavPtr<AVPacket>> units;
};

/// The first \p count units of a file, or all if it has fewer. \throws ToolError
Clip LoadClip(const std::string& path, size_t count);

/// A clip of moving wave patterns with some noise, so that every block of a picture has motion and
/// a residual to decode.
Clip GenerateClip(int width, int height, size_t count);
