#pragma once

#include <string>

/// What the user chooses about the tracks of a video. Empty or negative: as is usual for the kind
/// of file.
struct Encoding {
    std::string codec;   ///< "h264", "h265" or "vp9".
    std::string preset;  ///< As libx264 and libx265 name them.
    int crf = -1;
    bool copiesAudio = true;

    bool ChoosesVideo() const { return !codec.empty() || !preset.empty() || crf >= 0; }
};
