#pragma once

#include <string>
#include <vector>

#include "support/Libav.h"

/// H.264 access units with start codes, of which the first and that after the last, which is the
/// first again, need none before them.
struct Clip {
    int width = 0;
    int height = 0;
    int reorderDepth = 0;  ///< Pictures that the decoder holds back for their order.
    std::vector<LibavPtr<AVPacket>> units;
};

/// The first \p count units of a file, or all where it has fewer. \throws ToolError
Clip LoadClip(const std::string& path, size_t count);

/// A clip of wave patterns that drift across each other, with some noise, so that every block of a
/// picture has both motion and a remainder to decode.
Clip GenerateClip(int width, int height, size_t count);
