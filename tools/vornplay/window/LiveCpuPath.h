#pragma once

#include "FramePath.h"
#include "Options.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"
#include "window/LivePath.h"

/// Frames decoded here, and handed over as pixels.
class LiveCpuPath : public LivePath {
public:
    /// \param settings all but the source and the size
    /// \param nextMask gives null where the mask stays. \throws ToolError
    LiveCpuPath(VideoFile file, const Options& options, RendererSettings settings,
                MaskSource nextMask);

    bool Next() override;
    void Draw(const View& view) override;
    double Seconds() const override { return seconds_; }
    int64_t Lost() const override { return reader_.Lost(); }
    int64_t Damaged() const override { return reader_.Damaged(); }
    const VideoFile& File() const override { return reader_.File(); }
    Renderer& Target() override { return renderer_; }

private:
    VideoReader reader_;
    const AVFrame& first_;
    FrameConverter converter_;
    Renderer renderer_;
    MaskSource nextMask_;
    LibavPtr<AVFrame> taken_{av_frame_alloc()};
    uint8_t* mask_ = nullptr;
    bool handedOver_ = false;
    int64_t count_ = 0;
    double seconds_ = 0.0;
};
