#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "Composition.h"
#include "Texture.h"
#include "render/VERenderer.h"
#include "support/Image.h"
#include "support/Libav.h"

/// What a renderer is created with.
struct RendererSettings {
    int source = VE_MODE_RGBA;  ///< VE_MODE_…
    void* javaVM = nullptr;     ///< For compressed sources.
    Size size;
    bool masked = false;
    Size maskSize;
    bool rgbMask = false;  ///< Masks have 3 bytes per pixel, not 4.
    Rgba clear = {0, 0, 0, 255};
    std::optional<Image> sticker;
};

/// A renderer with the texture that it draws into. Needs a current GL context as long as it lives,
/// one renderer at a time: when it goes, it deletes all pixel buffers of the context.
///
/// Raw frames and masks are drawn one call after they were handed over. Of compressed frames each
/// call draws the newest that the decoder delivered.
class Renderer {
public:
    /// \throws ToolError
    explicit Renderer(RendererSettings settings);

    /// Sets how the next draws look.
    void SetShot(const Shot& shot);

    /// Hands over one access unit of compressed data.
    void Feed(AVPacket& unit) { VEUpdateCompressedData(handle_.get(), unit.data, unit.size); }

    /// Takes a raw frame and a mask, each null for none, without drawing them: the next Draw()
    /// does.
    void HandOver(uint8_t* frame, uint8_t* mask);

    /// Draws. \param nextMask null, or the mask for the draw after this one
    void Draw(uint8_t* nextMask = nullptr);

    Size FrameSize() const { return settings_.size; }

    /// The picture that was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack();

    /// The texture with the picture that was drawn last.
    GLuint TextureName() const { return texture_.Name(); }

    /// Average time per draw, the GL's included.
    double MillisecondsPerDraw() const;

private:
    struct DestroyHandle {
        void operator()(void* handle) const;
    };

    void CheckSizes() const;
    void Create();
    void WarmUp();
    void Update(uint8_t* frame, uint8_t* mask);

    RendererSettings settings_;
    Shot shot_;
    Texture texture_;
    std::optional<Texture> sticker_;
    std::unique_ptr<void, DestroyHandle> handle_;
    TextureReader reader_;  // After the handle, which deletes framebuffers that are not its own.
    Image image_;
    std::chrono::duration<double, std::milli> drawingTime_{};
    int64_t draws_ = 0;
};
