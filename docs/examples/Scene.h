#pragma once

/// \file
/// The argument of the programs on the documentation pages.

#include <jni.h>

#include <cstdint>
#include <vector>

/// A picture: rows of R, G, B, A bytes, first row first, without padding.
struct Pixels {
    int width = 0;
    int height = 0;
    uint8_t* rgba = nullptr;
};

/// An access unit of compressed video.
struct Unit {
    std::vector<uint8_t> bytes;
    int64_t ptsUs = 0;  ///< Presentation time of its picture, in microseconds.
};

/// An OpenGL ES 3 context is current.
struct Scene {
    int texture = 0;  ///< The destination: a new name from glGenTextures.
    Pixels frame;     ///< A frame of a video.
    Pixels sticker;   ///< A small picture.

    JavaVM* javaVM = nullptr;  ///< For compressed video only.
    std::vector<Unit> clip;    ///< H.264 access units that show the frame.
};

/// Each page defines this function.
void Draw(const Scene& scene);
