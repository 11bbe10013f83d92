#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Renderer.h"
#include "support/VideoFile.h"

/// Gives the mask of the next frame, valid until the next call; null if the mask stays as it is.
using MaskSource = std::function<uint8_t*()>;

/// The frames of a file, one after the other, drawn by a renderer. Each frame can be drawn several
/// times, or not at all.
class FrameSource {
public:
    /// \param nextMask called once for each frame
    explicit FrameSource(MaskSource nextMask) : nextMask_(std::move(nextMask)) {}
    virtual ~FrameSource() = default;
    FrameSource(const FrameSource&) = delete;
    FrameSource& operator=(const FrameSource&) = delete;

    /// Takes the next frame. \return false after the last one, which stays. \throws ToolError
    virtual bool Next() = 0;

    /// Draws the frame that was taken last; there must be one. \throws ToolError
    virtual void Draw(const Shot& shot) = 0;

    /// When the frame that was taken last is shown, from the beginning of the file, in seconds and
    /// in ticks of Times().Clock().
    double Seconds() const { return Times().Clock().Seconds(time_); }
    int64_t Time() const { return time_; }

    /// Frames that should have been among those so far and could not be decoded.
    virtual int64_t Lost() const = 0;
    /// Frames drawn with flaws, as far as that is known.
    virtual int64_t Damaged() const { return 0; }

    /// How many frames of the input \p drawn pictures showed.
    virtual int64_t Shown(int64_t drawn) const { return drawn; }
    /// Frames of the input that came too late to be shown.
    virtual int64_t Dropped() const { return 0; }

    /// What happened to the frames of \p drawn pictures, in a line for the user.
    virtual std::string Summary(int64_t drawn) const;

    /// What was done to the frames that the user did not ask for, in lines for the user.
    virtual std::vector<std::string> Remarks() const;
    /// Whether the frames have other colors than File() says: those of BT.709.
    virtual bool IsToneMapped() const { return false; }

    /// As "path" in the player's JSON.
    virtual const char* Name() const = 0;
    virtual const VideoFile& File() const = 0;
    virtual const FrameTimes& Times() const = 0;
    virtual Renderer& GetRenderer() = 0;
    virtual const Renderer& GetRenderer() const = 0;

protected:
    /// Notes that a frame was taken. \param time in ticks of Times().Clock()
    void NoteTime(int64_t time) { time_ = time; }
    /// Asks for the mask of the next frame.
    void AskForMask();
    /// The mask to hand over; null if the renderer has it already.
    uint8_t* TakeMask() { return std::exchange(mask_, nullptr); }

private:
    MaskSource nextMask_;
    uint8_t* mask_ = nullptr;
    int64_t time_ = 0;
};
