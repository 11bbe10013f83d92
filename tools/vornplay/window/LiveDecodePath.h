#pragma once

#include "DecoderFeed.h"
#include "FramePath.h"
#include "Options.h"
#include "window/LivePath.h"

/// Frames handed over compressed, and decoded by the platform.
class LiveDecodePath : public LivePath {
public:
    /// \param settings all but the source and the size; with a Java machine
    /// \param nextMask gives null where the mask stays. \throws ToolError
    LiveDecodePath(VideoFile file, const Options& options, RendererSettings settings,
                   MaskSource nextMask);

    bool Next() override;
    void Draw(const View& view) override;
    double Seconds() const override { return seconds_; }
    int64_t Lost() const override { return feed_.Lost(); }
    const VideoFile& File() const override { return file_; }
    Renderer& Target() override { return renderer_; }

private:
    VideoFile file_;
    Renderer renderer_;
    DecoderFeed feed_;
    MaskSource nextMask_;
    HostFrames frames_ = {0, 0, -1};
    uint8_t* mask_ = nullptr;
    int64_t count_ = 0;
    double seconds_ = 0.0;
};
