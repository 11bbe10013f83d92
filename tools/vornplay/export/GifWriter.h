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
    explicit GifWriter(const OutputSettings& settings);

    void Write(const Image& frame, int64_t time) override;
    void Finish(bool cutShort) override;
    void Commit() override { muxer_.Commit(); }
    std::string Remark() const override;

private:
    struct FreeGraph {
        void operator()(AVFilterGraph* graph) const;
    };

    void OpenPalettes(Size size);
    int64_t Place(int64_t time);
    void Fill(const Image& frame);
    void Drain();

    Muxer muxer_;
    VideoTrack video_;
    std::unique_ptr<AVFilterGraph, FreeGraph> graph_;
    AVFilterContext* source_ = nullptr;
    AVFilterContext* sink_ = nullptr;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    FrameClock clock_;   ///< Of the frames that are written here.
    int64_t last_ = -1;  ///< The time of the last one, in the format's units.
    int64_t moved_ = 0;  ///< Frames that are not shown exactly when they should be.
};
