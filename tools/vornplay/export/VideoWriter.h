#pragma once

#include <optional>
#include <string>

#include "AudioWriter.h"
#include "FrameSink.h"
#include "VideoTrack.h"

/// How a video is put into a file.
struct VideoFormat {
    const char* container;  ///< libavformat's name of it.
    VideoCoding coding;
    LibavOptions muxing;
    LibavOptions streaming;  ///< Of a file that is a pipe.
    bool even;               ///< Width and height must be even; odd frames are padded.
    bool keepsMatrix;        ///< Keeps the display matrix.
};

/// Writes video with the audio and the color tags of the input. Frames
/// are laid over the backdrop unless the coding has alpha.
class VideoWriter : public FrameSink {
public:
    /// \throws ToolError
    VideoWriter(const VideoFormat& format, const OutputSettings& settings);

    void Write(Image& frame, int64_t time) override;
    void Join(const VideoFile& input, int64_t time) override;
    void Finish(bool cutShort) override;
    void Commit() override { muxer_.Commit(); }
    std::string Remark() const override;
    AudioReport Audio() const override { return audio_.Report(); }

private:
    VideoCoding coding_;
    Backdrop backdrop_;
    bool leavesAudio_;  ///< For the time when parts are joined.
    bool losesMatrix_ = false;
    Size size_;  ///< Of the pictures of the file.
    Muxer muxer_;
    VideoTrack video_;
    AudioWriter audio_;
    int64_t lead_ = 0;  ///< The time of the first frame, in ticks.
    FrameClock clock_;
    ColorConverter converter_;
    std::optional<Image> padded_;  ///< None: frames have the size of the pictures.
    LibavPtr<AVFrame> picture_{av_frame_alloc()};
};
