#pragma once

#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"
#include "support/PictureModel.h"
#include "support/TestImages.h"

/// A new context with unpack and pack alignment 1, and the GL table loaded.
struct TestContext {
    TestContext();

    OffscreenContext context;
};

/// GL name of a new texture.
unsigned NewTexture();

/// Puts an image into a texture, first row first, with nearest filters.
void Fill(unsigned texture, const Image& image);

/// GL name of a new external texture that shows \p image, with nearest filters.
unsigned NewExternalTexture(const Image& image);

/// The texture's pixels as RGBA, first row first. Leaves framebuffer 0 bound.
Image ReadBack(unsigned texture, Size size);

void SetClearColor(const Rgba& color);

/// A renderer and its destination texture, in the current context.
class RendererHarness {
public:
    explicit RendererHarness(const VERendererMode& mode, int format = VE_FORMAT_RGBA);
    ~RendererHarness();
    RendererHarness(const RendererHarness&) = delete;
    RendererHarness& operator=(const RendererHarness&) = delete;

    /// One update call with the scene's picture, mask, stickers, mirror and clear color.
    void update(const Scene& scene);
    /// Applies the scene's view and updates until its own pixels are the ones drawn.
    void show(const Scene& scene);
    /// As \ref show, then compares the destination with the model.
    void expectShows(const Scene& scene);

    Image readBack() const { return ReadBack(texture, {mode.textureWidth, mode.textureHeight}); }

    VERendererMode mode;
    unsigned texture = NewTexture();
    void* handle = nullptr;

private:
    unsigned stickerTexture_ = 0;
    const Image* stickerImage_ = nullptr;
};
