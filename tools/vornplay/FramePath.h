#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "Renderer.h"
#include "support/VideoFile.h"

/// Gives the mask of the next frame, valid until the next call.
using MaskSource = std::function<uint8_t*()>;

/// A way from the frames of a file into the renderer's texture.
class FramePath {
public:
    FramePath() = default;
    virtual ~FramePath() = default;
    FramePath(const FramePath&) = delete;
    FramePath& operator=(const FramePath&) = delete;

    /// Draws the next frame. \param last none will be asked for after it
    /// \return false when there is none. \throws ToolError
    virtual bool DrawNext(const View& view, bool last) = 0;

    /// Frames that should have been among those so far and could not be decoded.
    virtual int64_t Lost() const = 0;
    /// Frames drawn with flaws, as far as that is known.
    virtual int64_t Damaged() const { return 0; }

    /// Frames of the input that the drawn ones showed, and those that came too late to be.
    virtual int64_t Shown(int64_t drawn) const { return drawn; }
    virtual int64_t Dropped() const { return 0; }

    /// What happened to \p drawn frames, for the user.
    virtual std::string Summary(int64_t drawn) const;

    virtual const char* Name() const = 0;
    virtual const VideoFile& File() const = 0;
    virtual Renderer& Target() = 0;
    virtual const Renderer& Target() const = 0;
};
