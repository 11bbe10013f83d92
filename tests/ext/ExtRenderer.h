#pragma once

#include <vector>

#include "render/VERendererExt.h"
#include "support/RendererHarness.h"

/// Options of a renderer of \p source, with an output texture.
VERendererOptions OptionsOf(int32_t source, int width, int height);

/// Adds a mask of pixels of \p format to the options.
VERendererOptions WithMask(VERendererOptions options, const Image& mask, int32_t format);

/// A guarded renderer with an output texture, in the current context.
class ExtRenderer {
public:
    explicit ExtRenderer(const VERendererOptions& options);
    ~ExtRenderer();
    ExtRenderer(const ExtRenderer&) = delete;
    ExtRenderer& operator=(const ExtRenderer&) = delete;

    VEDrawn draw(const VEDrawOptions& options) const;
    VEDrawn drawFrame(const Image* frame, const Image* mask = nullptr) const;
    /// Draws the scene. A mask is given as pixels where the renderer takes them, as a texture
    /// otherwise.
    void show(const Scene& scene) const;
    /// As \ref show, then compares the output with the model.
    void expectShows(const Scene& scene) const;

    Image readBack() const {
        return ReadBack(options.outputTexture, {options.outputWidth, options.outputHeight});
    }

    VERendererOptions options;
    VERenderer* handle = nullptr;

private:
    unsigned sticker_ = NewTexture();
    unsigned source_ = NewTexture();
    unsigned mask_ = NewTexture();
};
