#pragma once

#include "CorrectedReader.h"
#include "FrameSource.h"
#include "support/FrameConverter.h"

/// Decodes frames here, and hands them to the renderer as pixels.
class PixelSource : public FrameSource {
public:
    /// \param settings zero size: the first frame's. \throws ToolError
    PixelSource(VideoFile file, const RendererSettings& settings, MaskSource nextMask);

    bool Next() override;
    void Draw(const Shot& shot) override;
    int64_t Lost() const override { return reader_.Reader().Lost(); }
    int64_t Damaged() const override { return reader_.Reader().Damaged(); }
    std::vector<std::string> Remarks() const override;
    bool IsToneMapped() const override { return reader_.IsToneMapped(); }
    const char* Name() const override { return "cpu"; }
    const VideoFile& File() const override { return reader_.Reader().File(); }
    const FrameTimes& Times() const override { return reader_.Reader().Times(); }
    Renderer& GetRenderer() override { return renderer_; }
    const Renderer& GetRenderer() const override { return renderer_; }

private:
    CorrectedReader reader_;
    const AVFrame* first_;  ///< Null once it was taken.
    Renderer renderer_;
    FrameConverter converter_;
    LibavPtr<AVFrame> taken_{av_frame_alloc()};
    bool handedOver_ = false;
};
