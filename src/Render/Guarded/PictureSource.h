#pragma once

#include <cstdint>

#include "../GPUTextureFilter/ViewTransform.h"
#include "render/VERendererExt.h"

class DecoderSource;

/// A picture in a GL texture.
struct Picture {
    uint32_t texture;
    /// One whose color buffer is the picture, as large as the output; 0 if there is none.
    uint32_t framebuffer;
    /// From (s, t, 0, 1), t = 0 at the picture's first row, to the texture's coordinates.
    OVR::Matrix4<float> place;
    bool isNew;
    int64_t ptsUs;
};

/// Where a guarded renderer's pictures come from. Each draw asks in two steps: stage may fail, and
/// nothing is lost then; take does not fail.
///
/// \thread the GL thread, unit 0 active.
class PictureSource {
public:
    PictureSource() = default;
    PictureSource(const PictureSource&) = delete;
    PictureSource& operator=(const PictureSource&) = delete;
    virtual ~PictureSource() = default;

    /// Prepares the picture that \p options bring. Throws Failure, also for options that do not fit
    /// the source.
    virtual void stage(const VEDrawOptions& options) = 0;
    /// \return whether there is a picture, and in \p picture the newest one.
    virtual bool take(const VEDrawOptions& options, Picture& picture) = 0;
    /// Brings the picture to \p output, an RGBA texture of the output's size, instead of take.
    ///
    /// \return false if only take can bring it.
    virtual bool upload(const VEDrawOptions& /*options*/, uint32_t /*output*/) { return false; }

    /// Whether VEDrawOptions::frame is its picture.
    virtual bool takesFrames() const { return false; }
    /// Whether the texture is a GL_TEXTURE_EXTERNAL_OES.
    virtual bool isExternal() const { return false; }
    /// The decoder behind it, or null.
    virtual DecoderSource* decoder() { return nullptr; }
    /// Called once, before the destructor. \return VE_OK or VE_BUSY.
    virtual VEResult close(VEContext /*context*/) { return VE_OK; }
};
