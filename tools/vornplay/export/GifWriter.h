#pragma once

#include <optional>
#include <string>

#include "FrameSink.h"
#include "VideoTrack.h"
#include "support/FrameFilter.h"

/// Writes an animated GIF with a palette for each frame. Pixels of less than half alpha are
/// transparent.
class GifWriter : public FrameSink {
public:
    /// \throws ToolError
    explicit GifWriter(const OutputSettings& settings);

    void Write(Image& frame, int64_t time) override;
    void Finish(bool cutShort) override;
    void Commit() override { muxer_.Commit(); }
    std::string Remark() const override;

private:
    int64_t Place(int64_t time);
    void Fill(const Image& frame);
    void Drain();

    Muxer muxer_;
    VideoTrack video_;
    std::optional<FrameFilter> palettes_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    FrameClock clock_;   ///< Of the frames that are written here.
    int64_t last_ = -1;  ///< The time of the last one, in the format's units.
    int64_t moved_ = 0;  ///< Frames that are not shown exactly when they should be.
};
