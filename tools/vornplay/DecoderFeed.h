#pragma once

#include <linux_platform/Host.h>

#include <memory>
#include <vector>

#include "Renderer.h"
#include "UnitReader.h"

/// Queues the access units of a file in the renderer's decoder, and keeps count of the frames that
/// come out. Without the platform's host functions, frames that nobody draws in time would be lost.
class DecoderFeed {
public:
    /// \param renderer created last on this thread. \throws ToolError
    DecoderFeed(VideoFile& file, Renderer& renderer);

    /// After each frame the decoder waits until it was drawn.
    void SetLockStep(bool on) { HostDecoder_setLockStep(decoder_.get(), on ? 1 : 0); }

    /// After each frame the decoder waits for Step().
    void SetStepping(bool on) { HostDecoder_setStepping(decoder_.get(), on ? 1 : 0); }
    void Step() { HostDecoder_step(decoder_.get()); }

    /// All units were handed over or dropped.
    bool AllRead() const { return next_ == nullptr; }
    /// The decoder was told that all units were handed over.
    bool AtEnd() const { return atEnd_; }
    /// When the next unit, or the end, is due, in seconds from the start of playing.
    double NextTime() const;
    /// Hands over the next unit, or the end of the stream. Leaves out a unit that is empty, or
    /// larger than the decoder takes. \return false if there is no room in time. \throws ToolError
    bool FeedNext(int64_t waitUs);
    /// Leaves the next unit out.
    void SkipNext() { Read(); }

    /// Waits until the decoder delivers a frame that Frames() does not count yet, and counts it.
    /// \throws ToolError
    HostResult WaitForFrame(int64_t timeoutUs);
    /// Waits as long as it takes, and feeds the decoder meanwhile. \return false after the last
    /// frame. \throws ToolError
    bool AwaitFrame();
    const HostFrames& Frames() const { return frames_; }

    /// When the frame that was noted last is shown, in ticks of Times().Clock().
    int64_t Time() const { return time_; }
    const FrameTimes& Times() const { return times_; }
    /// The presentation time by which the renderer knows the newest frame.
    int64_t PtsUs() const { return units_.at(NewestIndex()).ptsUs; }
    /// Notes that the newest frame came out. \return whether it should be shown
    bool NoteFrame();

    /// Units from the start on that should have given a frame by now and did not.
    int64_t Lost() const;
    /// Units from the start on that were read.
    int64_t Units() const;

private:
    struct ReleaseDecoder {
        void operator()(HostDecoder* decoder) const { HostDecoder_release(decoder); }
    };
    struct Unit {
        int64_t stamp;  ///< In the file's units, or AV_NOPTS_VALUE.
        int64_t ptsUs;
        bool hidden;  ///< The container cuts it off.
        bool wanted;  ///< Not hidden, and not from before the start.
        bool out;     ///< Its frame came out.
    };

    void Read();
    int64_t PtsUsOf(int64_t time) const;
    VEUnit NextUnit() const;
    void CheckDecoder() const;
    size_t NewestIndex() const { return queued_.at(static_cast<size_t>(frames_.unit)); }
    bool IsOverdue(size_t index) const;

    VideoFile& file_;
    Renderer& renderer_;
    std::unique_ptr<HostDecoder, ReleaseDecoder> decoder_;
    UnitReader reader_;
    FrameTimes times_;
    int64_t time_ = 0;
    AVPacket* next_ = nullptr;
    HostFrames frames_ = {0, 0, -1};
    std::vector<Unit> units_;     ///< All that were read.
    std::vector<size_t> queued_;  ///< Indices of those that the decoder got, in its order.
    size_t latest_ = 0;           ///< The largest index whose frame came out.
    bool started_ = false;        ///< A frame from the start on came out.
    bool atEnd_ = false;
    bool ended_ = false;  ///< All frames came out.
};
