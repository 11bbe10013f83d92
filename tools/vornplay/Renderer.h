#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "OptionValues.h"
#include "TargetTexture.h"
#include "render/VERenderer.h"
#include "support/Image.h"

struct RendererSettings {
    Size size;
    bool rgb = false;  ///< Frames of 3 bytes a pixel, else 4.
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
/// A frame is drawn one call after it was handed over: after Submit for frames 1, 2, 3, the texture
/// shows nothing of use, frame 1, frame 2; Finish then draws frame 3.
class Renderer {
public:
    /// \throws ToolError
    explicit Renderer(RendererSettings settings);

    /// Sets the view for the frame that the next call draws.
    void SetView(const View& view);

    /// Draws the frame handed over before, and takes the next one. \p mask is not read unless
    /// masked.
    void Submit(uint8_t* frame, uint8_t* mask);

    /// Draws the frame handed over last.
    void Finish() { Submit(nullptr, nullptr); }

    /// What was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack();

    /// Time spent drawing so far, the GL's included.
    std::chrono::duration<double> DrawingTime() const { return drawingTime_; }

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
    std::chrono::duration<double> drawingTime_{};
};
