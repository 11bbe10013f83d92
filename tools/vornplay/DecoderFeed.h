#pragma once

#include <linux_platform/Host.h>

#include <memory>
#include <vector>

#include "Renderer.h"
#include "UnitReader.h"

/// Hands the units of a file to the platform's decoder by way of the renderer, and tells what
/// becomes of them.
class DecoderFeed {
public:
    /// \param renderer the one that was created last. \throws ToolError
    DecoderFeed(VideoFile& file, Renderer& renderer);

    void SetLockStep(bool on) { HostDecoder_setLockStep(decoder_.get(), on ? 1 : 0); }

    /// Each frame stays until Step().
    void SetStepping(bool on) { HostDecoder_setStepping(decoder_.get(), on ? 1 : 0); }
    void Step() { HostDecoder_step(decoder_.get()); }

    /// All units were handed over, and the decoder told so.
    bool AtEnd() const { return atEnd_; }
    /// When the next unit is due, in seconds from the start on.
    double NextTime() const;
    /// Whether the decoder has room for a unit.
    bool HasRoom(int64_t timeoutUs);
    /// Hands the next unit over, or tells the end. Where there is no room in time the unit is lost;
    /// the end is for another call.
    void FeedNext(int64_t timeoutUs);

    /// Waits until the decoder delivered more than \p seen frames. \throws ToolError
    HostResult WaitForFrame(int64_t seen, int64_t timeoutUs, HostFrames& frames);
    /// Waits as long as it takes, and keeps the decoder busy meanwhile. \return false after the
    /// last frame. \throws ToolError
    bool AwaitFrame(int64_t seen, HostFrames& frames);
    /// When the frame of the unit of this number is shown, in the file's units, or AV_NOPTS_VALUE.
    int64_t TimeOf(int64_t number) const { return UnitOf(number).time; }
    /// Notes that the frame of the unit of this number came out. \return whether it is to be shown
    bool Show(int64_t number);

    /// Units from the start on that should have given a frame by now and did not.
    int64_t Lost() const;
    /// Units from the start on that were read.
    int64_t Units() const;

private:
    struct ReleaseDecoder {
        void operator()(HostDecoder* decoder) const { HostDecoder_release(decoder); }
    };
    struct Unit {
        int64_t time;
        bool hidden;  ///< Never to be shown.
        bool wanted;  ///< To be shown, and not from before the start.
        bool out;     ///< Its frame came out.
    };

    void Read();
    size_t IndexOf(int64_t number) const { return queued_.at(static_cast<size_t>(number)); }
    const Unit& UnitOf(int64_t number) const { return units_.at(IndexOf(number)); }
    bool IsOverdue(size_t index) const;

    VideoFile& file_;
    Renderer& renderer_;
    std::unique_ptr<HostDecoder, ReleaseDecoder> decoder_;
    const size_t capacity_;
    UnitReader reader_;
    AVPacket* next_ = nullptr;
    std::vector<Unit> units_;     ///< All that were read.
    std::vector<size_t> queued_;  ///< Which of them the decoder has got, by its numbers.
    size_t newest_ = 0;           ///< The last of them whose frame came out.
    bool started_ = false;        ///< A frame from the start on came out.
    bool atEnd_ = false;
    bool ended_ = false;  ///< All frames are out.
};
