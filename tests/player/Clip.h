#pragma once

#include <string>
#include <vector>

#include "export/Colors.h"
#include "support/Image.h"
#include "support/Libav.h"

/// What a clip for tests is like.
struct ClipKind {
    int frames = 20;
    Size size = {64, 48};
    AVRational frameRate = {25, 1};
    ColorTags tags = {AVCOL_RANGE_MPEG, AVCOL_SPC_SMPTE170M, AVCOL_PRI_SMPTE170M,
                      AVCOL_TRC_SMPTE170M};
    const char* container = "matroska";
    bool interlaced = false;
    std::vector<const char*>
        audio;  ///< Encoders, one for each track. All have languages and titles.
};

/// Writes H.264 video with frames that are shown in another order than they are decoded in. Frame
/// n, from 1 on, is all of its FrameColor. The audio is noise, a little longer than the video.
void MakeClip(const std::string& path, const ClipKind& kind);

struct AudioPacket {
    double seconds;
    std::string bytes;
};

struct AudioTrack {
    std::string language;
    std::string title;
    std::vector<AudioPacket> packets;
};

std::vector<AudioTrack> ReadAudio(const std::string& path);

/// The frames of an output of any kind.
std::vector<Image> ReadFrames(const std::string& path);

/// The pictures of an animated WebP and when each ends, in milliseconds.
std::vector<std::pair<Image, int>> ReadWebp(const std::string& path);
