#pragma once

#include <string>
#include <vector>

#include "export/Colors.h"
#include "support/Image.h"
#include "support/Libav.h"

/// What a clip for tests is to be like.
struct ClipKind {
    int frames = 20;
    Size size = {64, 48};
    AVRational frameRate = {25, 1};
    ColorTags tags = {AVCOL_RANGE_MPEG, AVCOL_SPC_SMPTE170M, AVCOL_PRI_SMPTE170M,
                      AVCOL_TRC_SMPTE170M};
    const char* container = "matroska";
    std::vector<const char*> audio;  ///< Encoders, one for each track.
};

/// Writes H.264 video with frames that are shown in another order than they are decoded in. Frame
/// n, from 1 on, is all of its FrameColor. The audio is noise as long as the video.
void MakeClip(const std::string& path, const ClipKind& kind);

struct AudioPacket {
    double seconds;
    std::string bytes;
};

/// The packets of each audio track of a file.
std::vector<std::vector<AudioPacket>> ReadAudio(const std::string& path);

/// The pictures of a video, RGBA.
std::vector<Image> ReadFrames(const std::string& path);

/// The pictures of an animated WebP and when each ends, in milliseconds.
std::vector<std::pair<Image, int>> ReadWebp(const std::string& path);
