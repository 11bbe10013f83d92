#pragma once

#include <string>
#include <vector>

#include "Encoding.h"
#include "support/Backdrop.h"
#include "support/Image.h"
#include "support/OutputFile.h"
#include "support/VideoFile.h"

/// What an output is made from.
struct OutputSettings {
    std::string path;    ///< "-" for stdout.
    std::string format;  ///< The extension of the kind; empty: that of the path.
    Existing existing;
    Size size;               ///< Of every frame.
    Backdrop backdrop;       ///< For files without alpha.
    const VideoFile& input;  ///< Gives the frame rate, the color tags and the audio.
    FrameClock clock;        ///< In whose ticks frames come.
    double begin;            ///< When the first frame is shown in the input, in seconds.
    bool toneMapped;         ///< The frames have the colors of BT.709, not the input's.
    bool turned;             ///< The frames were turned by the input's display matrix.
    Encoding encoding;
    bool isPart = false;  ///< It will be joined with others; then the audio is copied.
};

/// What becomes of the input's audio tracks, by the names of their codecs.
struct AudioReport {
    std::vector<std::string> copied;
    std::vector<std::string> encoded;  ///< Compressed again.
    std::vector<std::string> leftOut;
};

/// Writes drawn frames to a file, or to several.
class FrameSink {
public:
    FrameSink() = default;
    virtual ~FrameSink() = default;
    FrameSink(const FrameSink&) = delete;
    FrameSink& operator=(const FrameSink&) = delete;

    /// \param frame it may be changed
    /// \param time when the frame is shown, in ticks since the first frame; later than the frame
    ///        before. \throws ToolError
    virtual void Write(Image& frame, int64_t time) = 0;

    /// The frames that follow are those of another input.
    /// \param time where the input begins in the output. \throws ToolError
    virtual void Join(const VideoFile& input, int64_t time) { (void)input, (void)time; }

    /// Completes the output, which still lacks its name.
    /// \param cutShort the input goes on after the last frame that was written
    /// \throws ToolError
    virtual void Finish(bool cutShort) { (void)cutShort; }

    /// Gives the finished output its name; without it there is none. \throws ToolError
    virtual void Commit() {}

    /// What the output could not keep of the input, in a line for the user; empty if nothing. Known
    /// at the end.
    virtual std::string Remark() const { return {}; }

    /// Empty for a writer that does not look at audio.
    virtual AudioReport Audio() const { return {}; }
};
