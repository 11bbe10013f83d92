#pragma once

#include <string>
#include <vector>

#include "AudioCopy.h"
#include "FrameSink.h"
#include "VideoTrack.h"

/// A kind of video file.
struct VideoFormat {
    const char* extension;
    const char* container;
    VideoCoding coding;
    LibavOptions muxing;
    bool alpha;  ///< Keeps the alpha; else frames are laid over the backdrop.
    bool even;   ///< Width and height must be even.
};

/// The format that files of this extension have; null if it is none of video.
const VideoFormat* FindVideoFormat(const std::string& extension);

/// Writes video of a constant frame rate, with the audio and the colour tags of the input.
class VideoWriter : public FrameSink {
public:
    /// \throws ToolError
    VideoWriter(const VideoFormat& format, const Options& options, Size size,
                const VideoFile& input);

    void Write(const Image& frame) override;
    void Finish(bool cutShort) override;
    AudioReport Audio() const override { return audio_.Report(); }

private:
    const uint8_t* Pixels(const Image& frame);

    const VideoFormat& format_;
    Backdrop backdrop_;
    Muxer muxer_;
    VideoTrack video_;
    AudioCopy audio_;
    ColourConverter converter_;
    LibavPtr<AVFrame> picture_{av_frame_alloc()};
    std::vector<uint8_t> rgb_;
};
