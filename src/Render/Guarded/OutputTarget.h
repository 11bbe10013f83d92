#pragma once

#include <cstdint>

#include "GLNames.h"

/// The application's texture as something to draw into.
class OutputTarget {
public:
    /// Gives a texture without immutable storage its storage, transparent black. Needs the state
    /// that draws need. Changes the bindings of GL_TEXTURE_2D, GL_PIXEL_UNPACK_BUFFER and
    /// GL_DRAW_FRAMEBUFFER. Throws Failure.
    ///
    /// \param format GL_RGB or GL_RGBA.
    OutputTarget(GLNames& names, uint32_t texture, uint32_t format, int32_t width, int32_t height);

    /// Binds it for drawing and clears it.
    void begin() const;

    int32_t width() const { return width_; }
    int32_t height() const { return height_; }

private:
    uint32_t framebuffer_;
    int32_t width_;
    int32_t height_;
};
