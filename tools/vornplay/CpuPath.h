#pragma once

#include "FramePath.h"
#include "Options.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

/// \p settings with the source and the size of frames that are handed over as pixels.
RendererSettings ForPixels(RendererSettings settings, const Options& options, const AVFrame& first);

/// Frames decoded here, and handed over as pixels.
class CpuPath : public FramePath {
public:
    /// \param settings all but the source and the size. \throws ToolError
    CpuPath(VideoFile file, const Options& options, RendererSettings settings, MaskSource nextMask);

    bool DrawNext(const View& view, bool last) override;
    int64_t Lost() const override { return reader_.Lost(); }
    int64_t Damaged() const override { return reader_.Damaged(); }
    const char* Name() const override { return "cpu"; }
    const VideoFile& File() const override { return reader_.File(); }
    Renderer& Target() override { return renderer_; }
    const Renderer& Target() const override { return renderer_; }

private:
    void Submit(const AVFrame& frame);

    VideoReader reader_;
    const AVFrame& first_;
    FrameConverter converter_;
    Renderer renderer_;
    MaskSource nextMask_;
    bool started_ = false;
    bool finished_ = false;
};
