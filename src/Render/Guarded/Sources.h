#pragma once

#include <memory>

#include "DecoderSource.h"
#include "PictureSource.h"
#include "PixelTexture.h"

/// Frames from the application's memory.
class FrameSource : public PictureSource {
public:
    /// \param once whether a frame is only for the draw that brings it.
    /// \param fits whether a frame has the output's size. Changes the binding of
    ///             GL_READ_FRAMEBUFFER then. Throws Failure, as PixelTexture does.
    FrameSource(GLNames& names, const PixelLayout& layout, bool delayed, bool once, bool fits);

    void stage(const VEDrawOptions& options) override;
    bool take(const VEDrawOptions& options, Picture& picture) override;
    bool upload(const VEDrawOptions& options, uint32_t output) override;
    bool takesFrames() const override { return true; }

private:
    PixelTexture pixels_;
    bool once_;
    uint32_t framebuffer_ = 0;
};

/// The application's texture, given with each draw.
class TextureSource : public PictureSource {
public:
    explicit TextureSource(bool external) : external_(external) {}

    void stage(const VEDrawOptions& options) override;
    bool take(const VEDrawOptions& options, Picture& picture) override;
    bool isExternal() const override { return external_; }

private:
    bool external_;
};

/// The platform's decoder.
class DecodedSource : public PictureSource {
public:
    /// \param settings all but the external texture. Throws Failure and std::bad_alloc.
    DecodedSource(GLNames& names, DecoderSettings settings);
    ~DecodedSource() override;

    void stage(const VEDrawOptions& options) override;
    bool take(const VEDrawOptions& options, Picture& picture) override;
    bool isExternal() const override { return true; }
    DecoderSource* decoder() override { return decoder_.get(); }
    VEResult close(VEContext context) override;

private:
    uint32_t texture_;
    std::unique_ptr<DecoderSource> decoder_;
    LatchedPicture latched_ = {};
    bool hasPicture_ = false;
    bool hasNewPicture_ = false;
};
