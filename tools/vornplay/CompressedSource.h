#pragma once

#include "DecoderFeed.h"
#include "FrameSource.h"

/// The kind of source that the renderer decodes this by, H.264 or Motion-JPEG: VE_SOURCE_…
int32_t SourceOf(const AVCodecParameters& codec);

/// Hands a file to the renderer as compressed access units, which the platform decodes. Waits for
/// each frame, so that none is dropped.
class CompressedSource : public FrameSource {
public:
    /// \param settings with a JVM; the codec is the file's, and so is the size if it is zero
    /// \throws ToolError
    CompressedSource(VideoFile file, RendererSettings settings, MaskSource nextMask);

    bool Next() override;
    void Draw(const Shot& shot) override;
    int64_t Lost() const override { return feed_.Lost(); }
    const char* Name() const override { return "decode"; }
    const VideoFile& File() const override { return file_; }
    const FrameTimes& Times() const override { return feed_.Times(); }
    Renderer& GetRenderer() override { return renderer_; }
    const Renderer& GetRenderer() const override { return renderer_; }

protected:
    DecoderFeed& Feed() { return feed_; }
    const DecoderFeed& Feed() const { return feed_; }

private:
    VideoFile file_;
    Renderer renderer_;
    DecoderFeed feed_;
};
