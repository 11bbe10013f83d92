#pragma once

#include "DecoderFeed.h"
#include "FramePath.h"
#include "Options.h"

/// \p settings with the source and the size of a file that is handed over compressed.
RendererSettings ForUnits(RendererSettings settings, const Options& options, const VideoFile& file);

/// Frames handed over compressed, and decoded by the platform.
class PlatformPath : public FramePath {
public:
    /// \param settings all but the source and the size; with a Java machine
    /// \throws ToolError
    PlatformPath(VideoFile file, const Options& options, RendererSettings settings,
                 MaskSource nextMask);

    int64_t Lost() const override { return feed_.Lost(); }
    const char* Name() const override { return "decode"; }
    const VideoFile& File() const override { return file_; }
    Renderer& Target() override { return renderer_; }
    const Renderer& Target() const override { return renderer_; }

protected:
    DecoderFeed& Feed() { return feed_; }
    const DecoderFeed& Feed() const { return feed_; }
    /// Draws the newest frame, with a mask of its own.
    void DrawNew(const View& view);
    /// Draws the newest frame with the mask that the next one is to have.
    void DrawInPassing() { renderer_.Draw(nullptr, mask_); }

private:
    VideoFile file_;
    Renderer renderer_;
    DecoderFeed feed_;
    MaskSource nextMask_;
    uint8_t* mask_;  ///< Handed over already: masks are drawn one call later, frames at once.
};

/// Draws each frame, however long that takes.
class DecodePath : public PlatformPath {
public:
    DecodePath(VideoFile file, const Options& options, RendererSettings settings,
               MaskSource nextMask);

    bool DrawNext(const View& view, bool last) override;

private:
    int64_t seen_ = 0;
};
