#pragma once

#include <string>

/// What becomes of the audio.
enum class AudioWay { kCopy, kNone, kAac };

/// What the user chooses about the tracks of a video. Empty or negative: as is usual for the kind
/// of file.
struct Encoding {
    std::string codec;   ///< "h264", "h265", "vp9" or "ffv1".
    std::string preset;  ///< As libx264 and libx265 name them.
    int crf = -1;
    AudioWay audio = AudioWay::kCopy;

    bool ChoosesVideo() const { return !codec.empty() || !preset.empty() || crf >= 0; }
};
