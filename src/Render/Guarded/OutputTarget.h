#pragma once

#include <cstdint>

#include "../GPUTextureFilter/ViewTransform.h"
#include "GLNames.h"
#include "render/VERendererExt.h"

/// The application's texture or framebuffer as something to draw into.
class OutputTarget {
public:
    /// Gives a texture without immutable storage its storage, transparent black. Needs the state
    /// that draws need. Changes the bindings of GL_TEXTURE_2D, GL_PIXEL_UNPACK_BUFFER and
    /// GL_DRAW_FRAMEBUFFER. Throws Failure.
    OutputTarget(GLNames& names, const VERendererOptions& options);

    /// Binds it for drawing.
    void bind() const;
    /// Binds it for drawing and clears it.
    void begin() const;
    /// Binds it for drawing and copies the pixels of a framebuffer of its size. Changes the binding
    /// of GL_READ_FRAMEBUFFER.
    void beginWith(uint32_t framebuffer) const;

    /// Whether a copy of RGBA pixels gives what drawing them gives.
    bool takesCopies() const { return takesCopies_; }
    /// The texture, if RGBA pixels can be uploaded to it; else 0.
    uint32_t rgbaTexture() const { return rgbaTexture_; }

    /// \return \p view so that the picture's first row is drawn where this output has it.
    OVR::Matrix4<float> upright(const OVR::Matrix4<float>& view) const;

    int32_t width() const { return width_; }
    int32_t height() const { return height_; }

private:
    void attach(const VERendererOptions& options);

    uint32_t framebuffer_;
    bool firstRowOnTop_;
    bool takesCopies_ = false;  ///< The storage is known.
    uint32_t rgbaTexture_ = 0;
    int32_t width_;
    int32_t height_;
};
