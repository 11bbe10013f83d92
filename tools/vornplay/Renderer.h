#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "Composition.h"
#include "Texture.h"
#include "render/VERendererExt.h"
#include "support/Image.h"
#include "support/PictureShape.h"

/// What a message proposes instead of the platform's decoder.
inline constexpr char kDecodeHere[] = "; --path cpu decodes without it";

/// What a renderer is created with.
struct RendererSettings {
    std::string input;  ///< The file's name, for messages.
    int source = VE_SOURCE_RGBA;
    const char* hint = kDecodeHere;  ///< Ends the messages about the platform's decoder.
    void* javaVM = nullptr;          ///< For compressed sources.
    PictureShape shape;  ///< Raw frames come flipped and with square pixels, but not turned.
    bool turn = true;    ///< Also by what single pictures say of themselves.
    bool keepInterlaced = false;
    Size sourceSize;       ///< Of raw frames, or the coded size.
    Size size;             ///< Of the drawn pictures.
    Size maskSize;         ///< Zero: there are no masks.
    bool rgbMask = false;  ///< Masks have 3 bytes per pixel, not 4.
    Rgba clear = {0, 0, 0, 255};
    std::optional<Image> sticker;
};

/// A renderer with the texture that it draws into. Needs a current GL context as long as it lives.
class Renderer {
public:
    /// \throws ToolError
    explicit Renderer(RendererSettings settings);

    /// Queues an access unit of compressed video.
    VEResult Queue(const VEUnit& unit) { return VEQueueUnit(handle_.get(), &unit); }
    /// For compressed video only.
    VEDecoderState DecoderState() const;

    /// Draws. \param frame a raw frame, or null for none \param mask null: as before
    /// \throws ToolError
    VEDrawn Draw(const Shot& shot, const uint8_t* frame, const uint8_t* mask);

    /// Says of a call that failed: what, in which file, and what to do. \throws ToolError, always
    [[noreturn]] void Fail(VEResult result) const;

    Size FrameSize() const { return settings_.size; }
    const RendererSettings& Settings() const { return settings_; }

    /// The picture that was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack();
    /// The same into an image of FrameSize(). \throws ToolError
    void ReadBack(Image& image) { reader_.Read(texture_, image); }

    /// The texture with the picture that was drawn last.
    GLuint TextureName() const { return texture_.Name(); }

    /// Average time per draw, the GL's included.
    double MillisecondsPerDraw() const;

private:
    struct Close {
        void operator()(VERenderer* handle) const { VECloseRenderer(handle, VE_CONTEXT_CURRENT); }
    };

    void CheckSizes() const;
    void Create();
    VEDrawOptions DrawOptions(const Shot& shot) const;

    RendererSettings settings_;
    Texture texture_;
    std::optional<Texture> sticker_;
    std::unique_ptr<VERenderer, Close> handle_;
    TextureReader reader_;
    Image image_;  ///< Empty until ReadBack() returns it.
    std::chrono::duration<double, std::milli> drawingTime_{};
    int64_t draws_ = 0;
};
