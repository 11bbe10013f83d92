#pragma once

#include <cstdint>

#include "Renderer.h"
#include "support/VideoFile.h"

/// A way from the frames of a file into the renderer's texture that can stand still: a frame is
/// drawn at once, as often as wanted, or not at all.
class LivePath {
public:
    LivePath() = default;
    virtual ~LivePath() = default;
    LivePath(const LivePath&) = delete;
    LivePath& operator=(const LivePath&) = delete;

    /// Takes the next frame. \return false after the last one, which then stays. \throws ToolError
    virtual bool Next() = 0;

    /// Draws the frame that was taken last.
    virtual void Draw(const View& view) = 0;

    /// When the frame that was taken last is shown, from the beginning of the file.
    virtual double Seconds() const = 0;

    virtual int64_t Lost() const = 0;
    virtual int64_t Damaged() const { return 0; }
    virtual const VideoFile& File() const = 0;
    virtual Renderer& Target() = 0;
};

/// The time of a frame; where the file has none, by its number from 0 on.
inline double SecondsOf(const VideoFile& file, int64_t time, int64_t number) {
    return time != AV_NOPTS_VALUE ? file.SecondsOf(time)
                                  : static_cast<double>(number) / av_q2d(file.FrameRate());
}
