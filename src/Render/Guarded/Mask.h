#pragma once

#include <optional>

#include "PixelTexture.h"
#include "render/VERendererExt.h"

/// The mask of a guarded renderer: the one given last, as pixels or as a texture.
///
/// \thread the GL thread.
class Mask {
public:
    /// \param layout of pixels; null when none will be given. Throws Failure, as PixelTexture does.
    Mask(GLNames& names, const PixelLayout* layout, bool delayed);

    /// Prepares the mask that \p options bring. Throws Failure; nothing has changed then.
    void stage(const VEDrawOptions& options);
    /// Takes it over.
    void take(const VEDrawOptions& options);

    /// The texture with the mask, 0 before the first.
    uint32_t texture() const { return texture_; }

private:
    std::optional<PixelTexture> pixels_;
    uint32_t texture_ = 0;
};
