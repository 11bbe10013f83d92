#pragma once

#include <memory>
#include <string>

#include "FrameSink.h"
#include "VideoTrack.h"

struct AVFilterContext;
struct AVFilterGraph;

/// Writes an animated GIF with a palette for each frame. Pixels of less than half alpha are
/// transparent.
class GifWriter : public FrameSink {
public:
    /// \throws ToolError
    GifWriter(const std::string& path, Size size, AVRational frameRate);

    void Write(const Image& frame) override;
    void Finish(bool cutShort) override;

private:
    struct FreeGraph {
        void operator()(AVFilterGraph* graph) const;
    };

    void OpenPalettes(Size size, AVRational frameRate);
    void Fill(const Image& frame);
    void Drain();

    Muxer muxer_;
    VideoTrack video_;
    std::unique_ptr<AVFilterGraph, FreeGraph> graph_;
    AVFilterContext* source_ = nullptr;
    AVFilterContext* sink_ = nullptr;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    int64_t frames_ = 0;
};
