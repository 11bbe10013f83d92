#pragma once

#include <GLES3/gl3.h>

#include <cstddef>
#include <string>

/// What one benchmark draws in every frame.
struct FrameCase {
    int width;
    int height;
    bool alpha;    ///< Frame and mask of 4 bytes a pixel instead of 3.
    bool masked;   ///< With a mask of the frame's size and format.
    int stickers;  ///< Number of stickers over the picture.

    GLenum format() const { return alpha ? GL_RGBA : GL_RGB; }
    size_t bytes() const {
        return static_cast<size_t>(width) * static_cast<size_t>(height) * (alpha ? 4 : 3);
    }
};

/// Such as "640x480 RGB, mask".
inline std::string LabelOf(const FrameCase& frame) {
    return std::to_string(frame.width) + "x" + std::to_string(frame.height) +
           (frame.alpha ? " RGBA" : " RGB") + (frame.masked ? ", mask" : "") +
           (frame.stickers > 0 ? ", " + std::to_string(frame.stickers) + " stickers" : "");
}
