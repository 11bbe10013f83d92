#pragma once

#include "FrameSource.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

/// Decodes frames here, and hands them to the renderer as pixels.
class PixelSource : public FrameSource {
public:
    /// \param settings zero size: the first frame's. \throws ToolError
    PixelSource(VideoFile file, const RendererSettings& settings, MaskSource nextMask);

    bool Next() override;
    void Draw(const Shot& shot) override;
    int64_t Lost() const override { return reader_.Lost(); }
    int64_t Damaged() const override { return reader_.Damaged(); }
    const char* Name() const override { return "cpu"; }
    const VideoFile& File() const override { return reader_.File(); }
    const FrameTimes& Times() const override { return reader_.Times(); }
    Renderer& GetRenderer() override { return renderer_; }
    const Renderer& GetRenderer() const override { return renderer_; }

private:
    VideoReader reader_;
    const AVFrame* first_;  ///< Null once it was taken.
    Renderer renderer_;
    FrameConverter converter_;
    LibavPtr<AVFrame> taken_{av_frame_alloc()};
    bool handedOver_ = false;
};
