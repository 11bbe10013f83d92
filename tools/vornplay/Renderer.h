#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "OptionValues.h"
#include "TargetTexture.h"
#include "render/VERenderer.h"
#include "support/Image.h"
#include "support/Libav.h"

struct RendererSettings {
    int source = VE_MODE_RGBA;  ///< VE_MODE_…
    void* javaVM = nullptr;     ///< For compressed sources.
    Size size;
    bool masked = false;
    Size maskSize;
    bool rgbMask = false;  ///< Masks of 3 bytes a pixel, else 4.
    bool mirror = false;
    Rgba clear = {0, 0, 0, 255};
    std::optional<Image> sticker;
    VEStickerList positions;
};

/// A renderer with the texture that it draws into. Needs a current GL context as long as it lives.
///
/// Raw frames and masks are drawn one call after they were handed over: with frames 1, 2, 3, the
/// texture shows nothing of use, frame 1, frame 2, and one more call without a frame draws frame 3.
/// Of compressed frames it shows the one that the decoder delivered last.
class Renderer {
public:
    /// \throws ToolError
    explicit Renderer(RendererSettings settings);

    /// Sets the view for the frame that the next call draws.
    void SetView(const View& view);

    /// Sets what else the next call draws the frame with.
    void SetMirror(bool mirror) { settings_.mirror = mirror; }
    void SetStickers(const VEStickerList& positions) { settings_.positions = positions; }

    /// Hands over compressed data: one access unit.
    void Feed(AVPacket& unit) { VEUpdateCompressedData(handle_.get(), unit.data, unit.size); }

    /// Draws, and takes the next raw frame and mask. \p mask is not read unless masked.
    void Draw(uint8_t* frame, uint8_t* mask);

    Size FrameSize() const { return settings_.size; }

    /// What was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack();

    /// Time that a draw took on average, the GL's included.
    double MillisecondsPerDraw() const;

private:
    struct DestroyHandle {
        void operator()(void* handle) const { VEDestroyRenderer(handle); }
    };

    void CheckSizes() const;
    void Create();
    void WarmUp();
    void Update(uint8_t* frame, uint8_t* mask);

    RendererSettings settings_;
    Texture target_;
    std::optional<Texture> sticker_;
    std::unique_ptr<void, DestroyHandle> handle_;
    // Goes before the handle, with which framebuffers of the application's may be deleted.
    TextureReader reader_;
    Image image_;
    std::chrono::duration<double, std::milli> drawingTime_{};
    int64_t draws_ = 0;
};
